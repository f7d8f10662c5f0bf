#include "backup/backup_files.h"
#include "backup/backup_list.h"
#include "backup/backups.h"
#include "platform/system_reason.h"
#include "store/store_fixture.h"

#include <QDir>

#include <zip.h>

#include <cerrno>
#include <new>

using namespace quenoria;
using namespace quenoria::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class BackupsTest : public StoreTest {
protected:
    BackupsTest() : backups(store(), desktop.platform())
    {
        QObject::connect(&backups, &Backups::failed, &backups,
                         [this](const QString &reason) { failures << reason; });
    }

    QString folder() const { return backupFolder(desktop.folders.data()); }
    std::size_t count() const { return storedBackups(folder()).size(); }
    void letRun()
    {
        backups.waitForDone();
        settle();
    }
    void startDay()
    {
        backups.startDay();
        desktop.clock.advance(3s);
        letRun();
    }

    static QByteArray member(const QString &path, const QString &name)
    {
        zip_t *archive = zip_open(path.toUtf8().constData(), ZIP_RDONLY, nullptr);
        zip_file_t *file = archive ? zip_fopen(archive, name.toUtf8().constData(), 0) : nullptr;
        QByteArray content(1 << 16, Qt::Uninitialized);
        content.resize(file ? zip_fread(file, content.data(), zip_uint64_t(content.size())) : 0);
        zip_fclose(file);
        zip_discard(archive);
        return content;
    }

    Backups backups;
    QStringList failures;
};

TEST_F(BackupsTest, TheFirstStartOfADayCopiesEveryFileOnceTheWindowIsThere)
{
    ASSERT_EQ(store().addToDoNotContact({u"0639980099"_s}), std::nullopt);
    backups.startDay();
    letRun();
    EXPECT_EQ(count(), 0U);
    startDay();
    ASSERT_EQ(count(), 1U);
    const StoredBackup made = storedBackups(folder()).front();
    for (const QString &name : QDir(desktop.folders.data()).entryList({u"*.json"_s}, QDir::Files))
        EXPECT_EQ(member(made.path, name), desktop.file(name)) << name.toStdString();
    EXPECT_EQ(QFileInfo(made.path).permissions() & 0x0077, 0);
    const auto note = readNote(made.path);
    ASSERT_TRUE(note);
    EXPECT_EQ(note->contacts, 3);
    EXPECT_EQ(note->sends, 1) << "of the contact that every folder starts with";

    store().setComment(u"plus tard"_s, alix());
    startDay();
    EXPECT_EQ(count(), 1U) << "a second start of the same day";
    desktop.clock.advance(24h);
    startDay();
    EXPECT_EQ(count(), 2U);
    desktop.clock.advance(24h);
    startDay();
    EXPECT_EQ(count(), 2U) << "nothing changed";
}

TEST_F(BackupsTest, ADeletionIsPrecededByABackupOfWhatGoes)
{
    store().setStopped(true, alix());
    const QByteArray before = desktop.file(u"suivi-envois.json"_s);
    store().deleteProspects({alix().id});
    letRun();
    ASSERT_EQ(count(), 1U);
    EXPECT_EQ(member(storedBackups(folder()).front().path, u"suivi-envois.json"_s), before);
    store().deleteProspects({chloe().id});
    letRun();
    EXPECT_EQ(count(), 2U) << "also within the same second";
}

TEST_F(BackupsTest, AFailureIsToldOnceUntilOneSucceeds)
{
    desktop.files.refusal = u"plein"_s;
    for (int day = 0; day < 3; ++day) {
        startDay();
        EXPECT_EQ(failures, QStringList{u"plein"_s});
    }
    EXPECT_EQ(count(), 0U);
    desktop.files.refusal.reset();
    startDay();
    EXPECT_EQ(count(), 1U);
    QFile::remove(desktop.folders.data() + u"/suivi-envois.json"_s);
    desktop.clock.advance(24h);
    startDay();
    EXPECT_EQ(failures.size(), 2) << "one without its sends would restore none";
}

struct NoMemory : WholeFileWriter {
    std::optional<QString> writePieces(const QString &, const GivePieces &) override
    {
        throw std::bad_alloc();
    }
};

TEST_F(BackupsTest, ALackOfMemoryIsToldLikeAFullDisk)
{
    NoMemory disk;
    const Platform all = desktop.platform();
    Backups poor(store(), {all.clock, all.preferences, all.folders, all.scripts, all.workspace,
                           all.sharing, all.pasteboard, all.panels, all.resources, all.log, disk,
                           all.handOver, all.mailbox, all.carriers});
    QStringList reasons;
    QObject::connect(&poor, &Backups::failed, [&](const QString &reason) { reasons << reason; });
    EXPECT_EQ(poor.saveTo(folder() + u"/clé.zip"_s).result(), systemReason(ENOMEM));
    Q_EMIT store().aboutToSweep();
    poor.waitForDone();
    settle();
    EXPECT_EQ(reasons, QStringList{systemReason(ENOMEM)});
}

struct Kept {
    const char *name;
    std::vector<int> hours; ///< before now
    qint64 size;
    std::vector<int> kept;
};

class Retention : public testing::TestWithParam<Kept> {};

TEST_P(Retention, KeepsWhatMayStillBeWanted)
{
    const Instant now = std::chrono::sys_days{std::chrono::year{2026} / 3 / 10} + 9h; // Tuesday
    std::vector<StoredBackup> all;
    for (const int age : GetParam().hours)
        all.push_back({QString::number(age), now - std::chrono::hours(age), GetParam().size});
    std::vector<int> kept = GetParam().hours;
    for (const StoredBackup &gone : surplus(all, now, QTimeZone("Europe/Paris")))
        std::erase(kept, gone.path.toInt());
    EXPECT_EQ(kept, GetParam().kept);
}

constexpr int day = 24;
constexpr qint64 mega = 1'000'000;

INSTANTIATE_TEST_SUITE_P(
    Ages, Retention,
    testing::Values(Kept{"none", {}, mega, {}},
                    Kept{"allOfAWeek", {1, 2, 3, day, 6 * day}, mega, {1, 2, 3, day, 6 * day}},
                    Kept{"oneOfEachWeekAndMonth",
                         {1, 9 * day, 10 * day, 14 * day, 16 * day, 17 * day},
                         mega,
                         {1, 9 * day, 10 * day, 16 * day}},
                    Kept{"oneOfEachMonth",
                         {1, 40 * day, 41 * day, 80 * day, 300 * day, 301 * day, 370 * day},
                         mega,
                         {1, 40 * day, 80 * day, 300 * day}},
                    Kept{"ofTheFuture", {-48, 1}, mega, {-48, 1}},
                    Kept{"oldestFirstOut", {1, 2, 3, 30 * day}, 200 * mega, {1, 2}},
                    Kept{"newestHoweverLarge", {1, 2}, 600 * mega, {1}}),
    [](const auto &kept) { return kept.param.name; });

} // namespace
