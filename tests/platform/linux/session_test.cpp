#include "platform/qt/dialog_panels.h"
#include "platform/qt/settings_preferences.h"
#include "platform/qt/single_instance.h"
#include "platform/qt/start_folder.h"
#include "platform/qt/system_clock.h"
#include "platform/system_reason.h"
#include "support/fake_desktop.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLayout>
#include <QTimer>

#include <gtest/gtest.h>

#include <future>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class Session : public testing::Test {
protected:
    QTemporaryDir folder;
    Disk files;

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
};

TEST_F(Session, PreferencesAreOnDiskAtOnceAndKeepTheirType)
{
    write(u"quenoria.conf"_s,
          "[General]\nlist=a, b\nnumber=1\nDernierDossier=\"/home/\\xe9t\\xe9\"\n");
    SettingsPreferences first(folder.filePath(u"quenoria.conf"_s), files);
    const QString hard = u"@é; \"\\\"\t\n\u0001\u0001a%20, [b]=\u007f\u2028 "_s;
    first.setFlag(u"EnvoiSMSFreeProPlan"_s, true);
    first.setFlag(u"EnvoiSMSAutoValidation"_s, false);
    first.setText(u"OlvakSMSManualTestNumber"_s, hard);
    EXPECT_EQ(first.unsaved(), std::nullopt);

    const QString copy = folder.filePath(u"copy.conf"_s); // what a kill at this moment would leave
    ASSERT_TRUE(QFile::copy(folder.filePath(u"quenoria.conf"_s), copy));
    const SettingsPreferences second(copy, files);
    EXPECT_EQ(second.flag(u"EnvoiSMSFreeProPlan"_s), true);
    EXPECT_EQ(second.flag(u"EnvoiSMSAutoValidation"_s), false);
    EXPECT_EQ(second.text(u"OlvakSMSManualTestNumber"_s), hard);
    EXPECT_EQ(second.text(u"DernierDossier"_s), u"/home/été"_s) << "written by the toolkit";
    EXPECT_EQ(second.text(u"list"_s), std::nullopt);
    for (const QString &key : {u"OlvakSMSManualTestNumber"_s, u"list"_s, u"number"_s, u"none"_s})
        EXPECT_EQ(second.flag(key), std::nullopt) << key.toStdString();
}

TEST_F(Session, PreferencesThatCannotBeStoredSayWhyAndAreKept)
{
    const QString file = folder.filePath(u"quenoria.conf"_s);
    SettingsPreferences preferences(file, files);
    files.refusal = u"plein"_s;
    preferences.setFlag(u"EnvoiSMSFreeProPlan"_s, true);
    EXPECT_EQ(preferences.unsaved(), u"plein"_s);
    EXPECT_EQ(preferences.flag(u"EnvoiSMSFreeProPlan"_s), true);
    files.refusal.reset();
    preferences.save();
    EXPECT_EQ(preferences.unsaved(), std::nullopt);
    EXPECT_EQ(SettingsPreferences(file, files).flag(u"EnvoiSMSFreeProPlan"_s), true);

    ASSERT_TRUE(QDir(folder.path()).mkdir(u"dossier"_s));
    SettingsPreferences unreadable(folder.filePath(u"dossier"_s), files);
    unreadable.setFlag(u"EnvoiSMSFreeProPlan"_s, true);
    EXPECT_NE(unreadable.unsaved(), std::nullopt) << "and what stands there is left as it is";
}

template <typename Kind>
bool owns(SingleInstance &instance, const QString &file = {})
{
    return std::holds_alternative<Kind>(instance.own(file));
}

TEST_F(Session, SecondStartCallsTheFirstAndEnds)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(u"a/data"_s));
    const QString data = folder.filePath(u"a/data"_s);
    QStringList calls;
    std::optional<SingleInstance> first(std::in_place, data,
                                        [&calls](const QString &file) { calls << file; });
    ASSERT_TRUE(owns<SingleInstance::Owner>(*first));
    SingleInstance second(folder.filePath(u"a/../a/data"_s), [](const QString &) {});
    EXPECT_TRUE(std::get<SingleInstance::OwnedByAnother>(second.own()).cameToFront);
    EXPECT_TRUE(owns<SingleInstance::OwnedByAnother>(second, u"/à importer.xlsx"_s));
    settle();
    EXPECT_EQ(calls, (QStringList{u""_s, u"/à importer.xlsx"_s}));
    SingleInstance elsewhere(folder.path(), [](const QString &) {});
    EXPECT_TRUE(owns<SingleInstance::Owner>(elsewhere));
    first.reset();
    EXPECT_TRUE(owns<SingleInstance::Owner>(second));
}

TEST_F(Session, AFolderThatCannotBeLockedIsNotOwned)
{
    SingleInstance nowhere(folder.filePath(u"absent"_s), [](const QString &) {});
    EXPECT_EQ(std::get<SingleInstance::Refused>(nowhere.own()).reason, systemReason(ENOENT));
    const auto failing = [](int error) {
        return FolderLock([error](int, int) {
            errno = error;
            return -1;
        });
    };
    SingleInstance network(
        folder.path(), [](const QString &) {}, failing(ENOLCK));
    EXPECT_TRUE(owns<SingleInstance::Unguarded>(network));
    SingleInstance broken(
        folder.path(), [](const QString &) {}, failing(EIO));
    EXPECT_EQ(std::get<SingleInstance::Refused>(broken.own()).reason, systemReason(EIO));

    int calls = 0;
    SingleInstance first(
        folder.path(), [&calls](const QString &) { ++calls; }, failing(ENOLCK));
    first.listen();
    EXPECT_TRUE(owns<SingleInstance::OwnedByAnother>(network)) << "somebody listens";
    settle();
    EXPECT_EQ(calls, 1);
}

class StaleLock : public Session, public testing::WithParamInterface<const char *> {};

TEST_P(StaleLock, IsTakenOver)
{
    write(u".quenoria.lock"_s, GetParam());
    write(u".quenoria.socket"_s, "");
    SingleInstance instance(folder.path(), [](const QString &) {});
    EXPECT_TRUE(owns<SingleInstance::Owner>(instance));
}

INSTANTIATE_TEST_SUITE_P(Contents, StaleLock,
                         testing::Values("1\nquenoria\n\n", // of the time when it held a number
                                         ""));

TEST_F(Session, SleepEndsWithItsTimeOrWithAStop)
{
    RecordingLog log;
    SystemClock clock(log);
    std::stop_source stop;
    QFuture<void> stopped = clock.sleep(1h, stop.get_token());
    EXPECT_FALSE(stopped.isFinished());
    stop.request_stop();
    EXPECT_TRUE(stopped.isFinished());
    EXPECT_TRUE(clock.sleep(1h, stop.get_token()).isFinished()) << "asked before it began";
}

struct Zone {
    const char *name;
    QByteArray wanted; ///< value of TZ
    QByteArray zone;   ///< empty: the system's own
};

class ZoneOfTheUser : public testing::TestWithParam<Zone> {};

TEST_P(ZoneOfTheUser, GivesARealMonth)
{
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", GetParam().wanted);
    RecordingLog log;
    const QTimeZone zone = SystemClock(log).zone();
    qputenv("TZ", before);
    EXPECT_TRUE(zone.isValid());
    if (!GetParam().zone.isEmpty()) {
        EXPECT_EQ(zone.id(), GetParam().zone);
    }
    EXPECT_EQ(log.lines.size(), GetParam().zone.isEmpty() ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(
    Values, ZoneOfTheUser,
    testing::Values(Zone{"rule", "CET-1CEST", ""}, Zone{"unknown", "Nulle/Part", ""},
                    Zone{"notAZone", "/etc/passwd", ""}, Zone{"folder", "/usr/share/zoneinfo", ""},
                    Zone{"name", "Asia/Tokyo", "Asia/Tokyo"},
                    Zone{"path", "/usr/share/zoneinfo/Asia/Tokyo", "Asia/Tokyo"},
                    Zone{"pathAfterColon", ":/usr/share/zoneinfo/Asia/Tokyo", "Asia/Tokyo"}),
    [](const auto &zone) { return zone.param.name; });

/// Acts in the next panel as its user, who then accepts unless the panel is gone.
void whenShown(std::function<void(QFileDialog &)> act)
{
    QTimer::singleShot(0, [act = std::move(act)] {
        auto &dialog = dynamic_cast<QFileDialog &>(*QApplication::activeModalWidget());
        act(dialog);
        if (dialog.isVisible())
            static_cast<QDialog &>(dialog).accept();
    });
}

TEST_F(Session, PanelsShowTheirTextsAndRememberTheFolder)
{
    write(u"contacts.xlsx"_s, "x");
    const QString file = folder.filePath(u"contacts.xlsx"_s);
    MemoryPreferences preferences;
    DialogPanels panels(preferences);
    const OpenPanel panel{u"Titre"_s, u"Choisissez un fichier"_s, u"Importer"_s, u"xlsx"_s};
    whenShown([&](QFileDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), panel.title);
        EXPECT_EQ(dialog.nameFilters(), QStringList{u"Classeurs Excel (*.xlsx)"_s});
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), panel.button);
        const auto &message = dynamic_cast<QLabel &>(*dialog.layout()->menuBar());
        EXPECT_TRUE(message.isVisible() && message.height() > 0 && message.text() == panel.message);
        dialog.selectFile(file);
    });
    EXPECT_EQ(panels.chooseFile(panel), file);
    whenShown([](QFileDialog &dialog) { dialog.reject(); });
    EXPECT_EQ(panels.chooseFile(panel), std::nullopt);
    whenShown([](QFileDialog &dialog) { dialog.selectFile(u"autre"_s); });
    EXPECT_EQ(panels.chooseDestination({u"Titre"_s, u"Modele.xlsx"_s, u"xlsx"_s}),
              folder.filePath(u"autre.xlsx"_s));
}

TEST_F(Session, PanelsOpenElsewhereThanInAFolderThatIsGoneOrNeverAnswers)
{
    const auto start = [](const QString &wanted) { return startFolder(wanted, u"home"_s, 1min); };
    EXPECT_EQ(start(folder.path()), folder.path());
    EXPECT_EQ(start(folder.filePath(u"gone"_s)), u"home"_s);
    EXPECT_EQ(start(u"/proc"_s), u"home"_s);

    std::promise<void> mounted;
    const auto hang = [wait = mounted.get_future().share()](const QString &) {
        wait.wait();
        return true;
    };
    EXPECT_EQ(startFolder(folder.path(), u"home"_s, 0ms, hang), u"home"_s);
    mounted.set_value();
}

} // namespace
