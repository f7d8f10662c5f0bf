#include "ui/window/window_fixture.h"

#include "ui/sheets/check_model.h"
#include "ui/sheets/workbook_check_view.h"

#include <QAbstractItemModelTester>
#include <QComboBox>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class CheckSheet : public WindowTest {
protected:
    const QString workbook = QStringLiteral(QUENORIA_TEST_DATA "/workbooks/openpyxl.xlsx");

    static void finishReading()
    {
        QThreadPool::globalInstance()->waitForDone();
        settle();
    }

    void open(const QString &path)
    {
        desktop.panels.answer = path;
        press(u"Vérifier un classeur…"_s);
        finishReading();
    }
};

TEST_F(CheckSheet, ShowsTheRowsAndImportsWhatWasShown)
{
    const QString copy = desktop.folders.root.filePath(u"c.xlsx"_s);
    QFile::copy(workbook, copy);
    open(copy);
    const auto &model = *window().findChild<CheckModel *>();
    const QAbstractItemModelTester tester(window().findChild<CheckModel *>(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    auto *choice = window().findChild<WorkbookCheckView *>()->findChild<QComboBox *>();
    const int all = model.rowCount();
    choice->setCurrentIndex(choice->findText(u"Nouveaux contacts (13)"_s));
    Q_EMIT choice->activated(choice->currentIndex());
    EXPECT_EQ(model.rowCount(), 13);
    EXPECT_GE(all, 13);
    EXPECT_TRUE(store().customProspects().empty());

    QFile::remove(copy); // or made another
    press(u"Importer"_s);
    EXPECT_TRUE(alert().startsWith(u"Import terminé | 13 contact(s) ajouté(s)."_s));
    EXPECT_EQ(store().customProspects().size(), 13U);
}

TEST_F(CheckSheet, LooksAgainWhenTheContactsChangeMeanwhile)
{
    open(workbook);
    ASSERT_TRUE(button(u"Importer"_s));
    ASSERT_FALSE(store().add(u"Même"_s, u"06 39 98 01 01"_s, {}, u"29"_s, {}));
    EXPECT_FALSE(button(u"Importer"_s)) << "what was shown is true no more";
    finishReading();
    press(u"Importer"_s);
    EXPECT_EQ(store().customProspects().size(), 13U) << "the one that was added is no new one";
}

} // namespace
