#include "backup/pending_restore.h"
#include "platform/posix/moved_file.h"
#include "ui/window/window_fixture.h"

#include <QCheckBox>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class BackupCommandsTest : public WindowTest {
protected:
    void openPreview()
    {
        press(u"Restaurer une sauvegarde…"_s);
        press(u"Voir ce qui changerait"_s);
    }
};

TEST_F(BackupCommandsTest, WhatWasDeletedByMistakeComesBackAndStopsStay)
{
    const QString gone = alix().id;
    window();
    store().setStopped(true, chloe());
    store().deleteProspects({gone});
    bool isDecided = false;
    QObject::connect(&window(), &ContentView::restoreDecided, &window(),
                     [&isDecided] { isDecided = true; });
    const QString folder = desktop.folders.data() + u"/Sauvegardes"_s;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !QDir(folder).entryList(QDir::Files).isEmpty(); }));
    openPreview();
    ASSERT_TRUE(button(u"Garder les STOP donnés depuis (0)"_s)) << "it was in the backup";
    button(u"Garder les STOP donnés depuis (0)"_s)->click();
    press(u"Restaurer"_s);
    EXPECT_FALSE(isDecided);
    EXPECT_TRUE(alert().startsWith(u"Restaurer sans tout garder ?"_s));
    button(u"Garder les STOP donnés depuis (0)"_s)->click();
    press(u"Restaurer"_s);
    EXPECT_TRUE(isDecided);
    closeWindow();
    EXPECT_TRUE(endRestore(desktop.platform(), &moveFile).isCompleted);
    const ProspectStore restored(desktop.platform());
    EXPECT_TRUE(restored.prospect(gone));
    EXPECT_TRUE(restored.isStopped(chloe()));
}

TEST_F(BackupCommandsTest, NothingIsRestoredWhileASendIsInDoubt)
{
    desktop.writeFile(u".envoi-en-cours"_s, R"([{"contact":"0639980010","channel":"sms","label":"A",
        "recipient":"0639980010","instant":"2026-03-10T08:59:00Z","digest":"","known":[]}])");
    window();
    while (!alert().isEmpty())
        settle();
    press(u"Restaurer une sauvegarde…"_s);
    EXPECT_TRUE(alert().startsWith(u"Restauration impossible"_s));
}

TEST_F(BackupCommandsTest, ABackupThatCannotBeSavedIsTold)
{
    window();
    desktop.panels.answer = desktop.folders.root.filePath(u"clé.zip"_s);
    desktop.files.refusal = u"plein"_s;
    press(u"Sauvegarder maintenant…"_s);
    QString told;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !(told = alert()).isEmpty(); }));
    EXPECT_TRUE(told.contains(u"plein"_s));
    EXPECT_FALSE(QFile::exists(*desktop.panels.answer));
}

} // namespace
