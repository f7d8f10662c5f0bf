#include "ui/window/window_fixture.h"

#include "ui/window/import_progress.h"
#include "ui/window/outcome_line.h"

#include <QDropEvent>
#include <QMimeData>
#include <QTemporaryDir>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Import : public WindowTest {
protected:
    const QString workbook = QStringLiteral(QUENORIA_TEST_DATA "/workbooks/openpyxl.xlsx");

    /// The report of the import that is under way.
    QString report()
    {
        const auto hasAlert = [this] { return window().findChild<QMessageBox *>() != nullptr; };
        return QTest::qWaitFor(hasAlert) ? alert() : QString();
    }
};

TEST_F(Import, AsksForAWorkbookAndShowsTheReport)
{
    press(u"Importer Excel"_s);
    ASSERT_EQ(desktop.panels.opened.size(), 1U);
    const OpenPanel panel = desktop.panels.opened.front();
    EXPECT_EQ(panel.title, u"Importer des contacts depuis Excel"_s);
    EXPECT_EQ(panel.message, u"Choisissez un fichier .xlsx contenant le nom du contact et au moins "
                             "un mobile ou une adresse e-mail."_s);
    EXPECT_EQ(panel.button, u"Importer"_s);
    EXPECT_EQ(panel.suffix, u"xlsx"_s);
    EXPECT_EQ(window().findChild<ImportProgress *>(), nullptr) << "the panel was cancelled";

    const int before = model().rowCount();
    desktop.panels.answer = workbook;
    press(u"Importer Excel"_s);
    EXPECT_TRUE(report().startsWith(u"Import terminé | "_s));
    settle();
    EXPECT_GT(model().rowCount(), before);
    window().importWorkbook(workbook);
    EXPECT_TRUE(report().startsWith(u"Aucun nouveau contact | 0 contact(s) ajouté(s).\n"_s));
}

TEST_F(Import, AFailureChangesNothing)
{
    window().importWorkbook(desktop.folders.data() + u"/absent.xlsx"_s);
    EXPECT_TRUE(report().startsWith(u"Import impossible | "_s));
    EXPECT_TRUE(store().customProspects().empty());
}

TEST_F(Import, TheWindowTakesNoOtherOrderMeanwhileAndCanStopIt)
{
    window().importWorkbook(workbook);
    auto *progress = window().findChild<ImportProgress *>();
    ASSERT_NE(progress, nullptr);
    EXPECT_EQ(progress->windowModality(), Qt::WindowModal);
    QTest::keyClick(progress, Qt::Key_Return);
    EXPECT_TRUE(progress->isVisible()) << "the key was meant for the report before it";
    progress->reject();
    QThreadPool::globalInstance()->waitForDone();
    settle();
    EXPECT_EQ(alert(), QString());
    EXPECT_TRUE(store().customProspects().empty());
}

TEST_F(Import, CanBeTakenBackUntilAMessageStandsBeforeTheUser)
{
    const QString undo = u"Annuler cet import"_s;
    window().importWorkbook(workbook);
    ASSERT_TRUE(QTest::qWaitFor([&] { return button(undo) != nullptr; }));
    press(undo);
    EXPECT_EQ(alert(), u"Import annulé | 13 contact(s) retiré(s)."_s);
    EXPECT_TRUE(store().customProspects().empty());
    EXPECT_FALSE(entry(undo)->isEnabled());

    window().importWorkbook(workbook);
    report();
    EXPECT_TRUE(entry(undo)->isEnabled());
    ASSERT_FALSE(desk().prepare(Channel::sms, *store().prospect(u"0639980101"_s), true));
    EXPECT_FALSE(entry(undo)->isEnabled());
}

TEST_F(Import, OneThatComesMeanwhileFollowsInItsTurnAndOnlyOnce)
{
    QTemporaryDir folder;
    const auto copy = [&](const QString &name) {
        const QString path = folder.filePath(name);
        QFile::copy(workbook, path);
        return path;
    };
    const QString absent = folder.filePath(u"absent.xlsx"_s);
    const QString second = copy(u"second.xlsx"_s);
    const auto isReading = [this] { return window().findChild<ImportProgress *>() != nullptr; };
    window().importWorkbook(workbook);
    for (const QString &path : {absent, workbook, second, absent})
        window().openWorkbook(path);
    window().findChild<ImportProgress *>()->reject();
    EXPECT_TRUE(report().startsWith(u"Import impossible | "_s))
        << "what was stopped loses no other";
    EXPECT_TRUE(store().customProspects().empty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button(u"Annuler cet import"_s) != nullptr; }));
    window().openWorkbook(second);
    window().openWorkbook(copy(u"third.xlsx"_s));
    EXPECT_TRUE(window().findChild<OutcomeLine *>()->text().contains(u"« third.xlsx »"_s));
    button(u"Annuler cet import"_s)->click();
    settle();
    EXPECT_FALSE(isReading()) << "before the last word on the former was read";
    EXPECT_EQ(alert(), u"Import annulé | 13 contact(s) retiré(s)."_s);
    EXPECT_TRUE(isReading());
    EXPECT_EQ(window().findChild<OutcomeLine *>()->text(), QString()) << "that it will follow";
    EXPECT_TRUE(report().startsWith(u"Import terminé | "_s)) << "the third";
    settle();
    EXPECT_FALSE(isReading());

    window().showAbout();
    window().openWorkbook(second);
    EXPECT_TRUE(alert().startsWith(u"Classeur non importé | "_s)) << "a sheet may hold anything";
}

TEST_F(Import, AWorkbookCanBeDroppedOnTheWindow)
{
    const auto drop = [this](const QString &path) {
        QMimeData dragged;
        dragged.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent released(QPoint(9, 9), Qt::CopyAction, &dragged, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &released);
        return true;
    };
    EXPECT_FALSE(drop(u"/dossier/photo.png"_s));
    EXPECT_TRUE(drop(workbook));
    EXPECT_TRUE(report().startsWith(u"Import terminé | "_s));
}

} // namespace
