#include "store/do_not_contact.h"
#include "ui/sheets/dossier_view.h"

#include "ui/sheets/sheet_probe.h"

#include <QCheckBox>
#include <QTextEdit>

using namespace quenoria;
using namespace quenoria::test;

namespace {

class Dossier : public SheetTest {
protected:
    Dossier()
    {
        desktop.writeFile(u"contacts-modifies.json"_s, R"({"0639980010":{"label":
            "<b>ALIX</b>\u202E\n&amp; FILS","phone":"06 39 98 00 11","department":"29"}})");
        desktop.writeFile(u"quota-destinataires-sms.json"_s,
                          R"({"2026-01":["0639980010"],"2026-02":["0639980012"]})");
        desktop.writeFile(u"fichiers-joints.json"_s, R"({"0639980010":"/nulle/part.pdf"})");
        store().setComment(u"Rappeler <i>mardi</i>"_s, alix());
        store().recordSent(alix(), *instantFromText("2026-01-10T08:00:00Z"));
        store().recordSent(alix(), *instantFromText("2026-02-11T08:00:00Z"));
        store().recordEmailSent(alix(), *instantFromText("2026-03-12T08:00:00Z"));
    }

    DossierView &sheet()
    {
        if (!m_sheet)
            m_sheet = new DossierView(desktop.platform(), store(), u"0639980010"_s, nullptr);
        return *m_sheet;
    }
    ~Dossier() override { delete m_sheet; }

    QString text() { return sheet().findChild<QTextEdit *>()->toPlainText(); }

    QPointer<DossierView> m_sheet;
};

TEST_F(Dossier, TellsWhateverTheFilesHoldAndReadsNoMarkup)
{
    for (const QString &known :
         {u"Nom : <b>ALIX</b>\n&amp; FILS"_s, u"Téléphone : 06 39 98 00 11"_s,
          u"Téléphone : 06 39 98 00 10"_s, u"alix@example.org"_s, u"29 – Finistère"_s,
          u"Fleuriste"_s, u"Identifiant : 0639980010"_s, u"liste fournie avec l’application"_s,
          u"Ne veut plus de message : non"_s, u"Rappeler <i>mardi</i>"_s,
          u"11 février 2026 à 09:00\n10 janvier 2026 à 09:00"_s, u"12 mars 2026 à 09:00"_s,
          u"Mois où le quota le compte : 2026-01, 2026-02"_s, u"/nulle/part.pdf"_s,
          u"introuvable"_s, store().assignedMessage(alix()).body.section(u'\n', -1),
          store().assignedEmailTemplate(alix()).subject})
        EXPECT_TRUE(text().contains(known)) << known.toStdString() << "\nin\n"
                                            << text().toStdString();
    EXPECT_FALSE(text().contains(u'\u202E'));
    store().setStopped(true, alix());
    EXPECT_TRUE(text().contains(u"Ne veut plus de message : oui"_s)) << "follows the store";
}

TEST_F(Dossier, IsSavedWholeOrSaysWhyNot)
{
    const Probe probe(sheet());
    desktop.panels.answer = desktop.folders.root.filePath(u"d.pdf"_s);
    desktop.files.refusal = u"plein"_s;
    probe.press(u"Enregistrer en PDF…"_s);
    EXPECT_EQ(probe.status(), u"Enregistrement impossible : plein"_s);
    EXPECT_FALSE(QFile::exists(*desktop.panels.answer));
    desktop.files.refusal.reset();
    probe.press(u"Enregistrer en PDF…"_s);
    EXPECT_EQ(desktop.panels.saved.back().fileName, u"Dossier - bALIXb &amp; FILS.pdf"_s);
    QFile pdf(*desktop.panels.answer);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().startsWith("%PDF-1."));
}

TEST_F(Dossier, ErasesNothingUnlessAskedToAndAbleToKeepImportsAway)
{
    const Probe probe(sheet());
    probe.press(u"Effacer ce contact et ses données…"_s);
    EXPECT_TRUE(probe.answer(u"Annuler"_s));
    EXPECT_NE(store().prospect(u"0639980010"_s), nullptr);
    sheet().findChild<QCheckBox *>()->click();
    desktop.files.refusal = u"plein"_s;
    probe.press(u"Effacer ce contact et ses données…"_s);
    EXPECT_TRUE(probe.answer(u"Effacer"_s));
    EXPECT_TRUE(probe.status().endsWith(u"plein"_s));
    EXPECT_NE(store().prospect(u"0639980010"_s), nullptr);
    desktop.files.refusal.reset();
    probe.press(u"Effacer ce contact et ses données…"_s);
    EXPECT_TRUE(probe.answer(u"Effacer"_s));
    EXPECT_EQ(store().prospect(u"0639980010"_s), nullptr);
    for (const QString &key : {u"0639980010"_s, u"0639980011"_s, u"email:alix@example.org"_s})
        EXPECT_TRUE(store().doNotContact().erased().contains(key)) << key.toStdString();
    EXPECT_FALSE(sheet().isVisible());
}

TEST_F(Dossier, OutlivesItsContact)
{
    const Probe probe(sheet());
    store().deleteProspects({u"0639980010"_s});
    EXPECT_TRUE(probe.shows(u"Ce contact n’est plus dans la liste"_s));
    EXPECT_EQ(text(), QString());
    EXPECT_FALSE(probe.button(u"Enregistrer en PDF…"_s)->isEnabled());
}

} // namespace
