#include "ui/sheets/excel_format_help_view.h"
#include "ui/sheets/history_rows.h"
#include "ui/sheets/send_history_view.h"
#include "ui/sheets/sheet_probe.h"

#include <QFile>

using namespace quenoria;
using namespace quenoria::test;

namespace {

class History : public SheetTest {
protected:
    std::vector<HistoryRow> rows() { return historyRows(store(), alix(), desktop.clock.zone()); }
};

TEST_F(History, ShowsTheNewestFirstWhateverTheOrderInTheFile)
{
    desktop.writeFile(u"suivi-envois.json"_s, R"({"0639980010":{"sent":false,
        "sentAt":"2026-03-01T08:05:00Z","sendHistory":["2026-03-01T08:05:00Z",
        "2026-07-14T21:59:00Z","2025-12-31T23:30:00Z"]}})");
    EXPECT_EQ(rows(),
              (std::vector<HistoryRow>{{u"Dernier envoi"_s, u"14 juillet 2026 à 23:59"_s},
                                       {u"Envoi précédent"_s, u"1 mars 2026 à 09:05"_s},
                                       {u"Envoi précédent"_s, u"1 janvier 2026 à 00:30"_s}}));
}

TEST_F(History, TheSheetFollowsTheStoreWhileItIsOpen)
{
    SendHistoryView sheet(store(), desktop.clock.zone(), alix(), nullptr);
    const Probe probe(sheet);
    EXPECT_TRUE(probe.shows(u"Aucun envoi enregistré"_s));
    EXPECT_FALSE(probe.shows(u"envoi(s)"_s));
    store().recordSentNow(alix());
    settle();
    EXPECT_TRUE(probe.shows(u"1 envoi(s) enregistré(s), du plus récent au plus ancien."_s));
    EXPECT_TRUE(probe.shows(u"10 mars 2026 à 10:00"_s));
    EXPECT_FALSE(probe.shows(u"Aucun"_s));
}

class Export : public testing::Test {
protected:
    FakeDesktop desktop;
    TemplateExport subject{desktop.panels, desktop.resources, desktop.files};
    const QString target = desktop.folders.root.filePath(u"modèle.xlsx"_s);

    QByteArray written() const
    {
        QFile file(target);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(Export, WithoutATemplateNoPanelOpensAndACancelledOneLeavesTheLastOutcome)
{
    subject.saveTemplate();
    EXPECT_TRUE(desktop.panels.saved.empty());
    desktop.resources.files[u"Modele_Import_Contacts_Quenoria.xlsx"_s] = "x";
    subject.saveTemplate();
    EXPECT_TRUE(subject.resultIsError());
    EXPECT_EQ(subject.resultMessage(), u"Le modèle Excel est introuvable dans l’application."_s);
}

TEST_F(Export, TheFirstNameFoundIsSavedOverWhatWasThere)
{
    desktop.panels.answer = target;
    for (const QString &name :
         {u"Modele_Import_Contacts_Pelvora"_s, u"Modele_Import_Contacts_Quenori"_s,
          u"Modele_Import_Contacts_Quenoria"_s}) {
        desktop.resources.files[name + u".xlsx"_s] = name.toUtf8();
        subject.saveTemplate();
        EXPECT_EQ(written(), name.toUtf8());
    }
    EXPECT_FALSE(subject.resultIsError());
    EXPECT_EQ(subject.resultMessage(), u"Le modèle Excel a été enregistré."_s);
    const SavePanel &panel = desktop.panels.saved.front();
    EXPECT_EQ(panel.title, u"Enregistrer le modèle Excel"_s);
    EXPECT_EQ(panel.fileName, u"Modele_Import_Contacts_Quenoria.xlsx"_s);
    EXPECT_EQ(panel.suffix, u"xlsx"_s);
}

TEST_F(Export, AFailureIsShownWithTheSystemsReason)
{
    desktop.resources.files[u"Modele_Import_Contacts_Quenoria.xlsx"_s] = "x";
    desktop.panels.answer = target + u"/absent/modele.xlsx"_s;
    ExcelFormatHelpView sheet(desktop.platform(), nullptr);
    const Probe probe(sheet);
    EXPECT_EQ(probe.status(), QString());
    probe.press(u"Enregistrer le modèle Excel…"_s);
    EXPECT_TRUE(probe.status().startsWith(u"Enregistrement impossible : "_s));
    EXPECT_GT(probe.status().size(), 30);
    EXPECT_EQ(probe.statusRole(), tintRole(Tint::negative));
    EXPECT_TRUE(probe.shows(u"Paris | ENTREPRISE EXEMPLE | Paris | 75001 | "_s));
    desktop.panels.answer = target;
    probe.press(u"Enregistrer le modèle Excel…"_s);
    EXPECT_EQ(probe.statusRole(), tintRole(Tint::positive));
}

} // namespace
