#include "ui/sheets/report_view.h"

#include "import/excel_workbook_reader.h"
#include "import/sheets.h"
#include "ui/kit/theme.h"
#include "ui/sheets/report_chart.h"
#include "ui/sheets/sheet_probe.h"

#include <QBarCategoryAxis>
#include <QGraphicsTextItem>
#include <QImage>
#include <QTableView>

using namespace quenoria;
using namespace quenoria::test;

namespace {

class Report : public SheetTest {
protected:
    Report()
    {
        desktop.writeFile(u"contacts-modifies.json"_s, R"({
            "0639980010":{"label":"A","phone":"06 39 98 00 10","department":"29",
                "profession":"<img src=x>un métier trop long"},
            "0639980012":{"label":"B","phone":"06 39 98 00 12","department":"56",
                "profession":"<img src=x>un métier aussi"}})");
    }
    ~Report() override { delete m_sheet; }

    ReportView &sheet()
    {
        if (!m_sheet)
            m_sheet = new ReportView(desktop.platform(), store(), nullptr);
        return *m_sheet;
    }

    void send()
    {
        store().recordSent(alix(), *instantFromText("2026-02-01T10:00:00Z"));
        store().recordEmailSent(chloe(), *instantFromText("2026-03-01T10:00:00Z"));
        store().setStopped(true, alix());
    }

    QPointer<ReportView> m_sheet;
};

TEST_F(Report, ShowsEachPageInTableAndChartAndReadsNoMarkup)
{
    send();
    const Probe probe(sheet());
    const auto *table = sheet().findChild<QTableView *>();
    const auto *chart = sheet().findChild<ReportChart *>();
    for (const auto &[page, rows, first] : {std::tuple(u"Par mois"_s, 2, u"mars 2026"_s),
                                            {u"Par département"_s, 3, u"29 – Finistère"_s},
                                            {u"Par métier"_s, 3, u"<img src=x>un métier aussi"_s},
                                            {u"Par modèle"_s, 2, u"SMS : 1er envoi"_s}}) {
        probe.choose(u"Bilan"_s, page);
        EXPECT_EQ(table->model()->rowCount(), rows) << page.toStdString();
        EXPECT_EQ(table->model()->index(0, 0).data(), first);
        const auto *axis =
            qobject_cast<QBarCategoryAxis *>(chart->chart()->axes(Qt::Horizontal).front());
        ASSERT_NE(axis, nullptr);
        EXPECT_EQ(axis->count(), rows) << "two that are cut alike are two";
    }
    EXPECT_EQ(table->model()->index(0, 6).data(), u"100,0 %"_s);
    probe.choose(u"Bilan"_s, u"Par métier"_s);
    for (const QGraphicsItem *item : chart->scene()->items()) {
        const auto *text = dynamic_cast<const QGraphicsTextItem *>(item);
        EXPECT_FALSE(text && text->toPlainText().contains(QChar::ObjectReplacementCharacter));
    }
}

TEST_F(Report, IsWrittenAsOneSheetPerPageAndAsALightPicture)
{
    send();
    applyTheme(Appearance::dark);
    const Probe probe(sheet());
    desktop.panels.answer = desktop.folders.root.filePath(u"b.xlsx"_s);
    for (const bool full : {true, false}) {
        desktop.files.refusal = full ? std::optional(u"plein"_s) : std::nullopt;
        for (const QString &button : {u"Exporter en classeur…"_s, u"Enregistrer l’image…"_s}) {
            if (!button.startsWith(u"Exp"_s))
                desktop.panels.answer = desktop.folders.root.filePath(u"b.png"_s);
            probe.press(button);
            ASSERT_TRUE(QTest::qWaitFor([&] {
                return probe.status() == (full ? u"Enregistrement impossible : plein"_s
                                               : u"Enregistré dans « %1 »."_s.arg(
                                                     QFileInfo(*desktop.panels.answer).fileName()));
            })) << probe.status().toStdString();
            EXPECT_NE(QFile::exists(*desktop.panels.answer), full);
        }
        desktop.panels.answer = desktop.folders.root.filePath(u"b.xlsx"_s);
    }
    applyTheme(Appearance::light);
    Sheets sheets;
    ExcelWorkbookReader::readSheets(*desktop.panels.answer, sheets);
    ASSERT_EQ(sheets.sheets.size(), 4U);
    EXPECT_EQ(sheets.sheets[0][2].mid(0, 4),
              (QStringList{u"févr. 2026"_s, u"1"_s, u"1"_s, u"1"_s}));
    EXPECT_EQ(sheets.sheets[3][1][6], u"1"_s) << "a share is a number";
    const QImage picture(desktop.folders.root.filePath(u"b.png"_s));
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
}

TEST_F(Report, SaysWhatToDoWhileNothingWasSentAndFollowsTheStore)
{
    const Probe probe(sheet());
    EXPECT_TRUE(probe.shows(u"Aucun envoi enregistré"_s));
    EXPECT_FALSE(probe.button(u"Exporter en classeur…"_s)->isEnabled());
    send();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !probe.shows(u"Aucun envoi enregistré"_s); }));
}

} // namespace
