#include "backup/backups.h"

#include "backup/backup_files.h"
#include "backup/backup_list.h"
#include "backup/backup_writer.h"
#include "model/local_time.h"
#include "platform/system_reason.h"
#include "store/prospect_store.h"

#include <QDir>
#include <QtConcurrent>

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <new>

using namespace std::chrono_literals;

namespace quenoria {

namespace {

constexpr auto afterStart = 3s; ///< when the window is there and has nothing else to do

/// Nothing that the user waits for gives way to a backup.
void becomeLessUrgent()
{
    constexpr int niceness = 10;
    ::setpriority(PRIO_PROCESS, ::id_t(::gettid()), niceness);
}

/// A second backup of the same second stands in the next one.
QString freePath(const QString &folder, Instant date)
{
    QString path = QDir(folder).filePath(backupName(date));
    while (QFile::exists(path)) {
        date += 1s;
        path = QDir(folder).filePath(backupName(date));
    }
    return path;
}

/// A lack of memory is a reason like others: an exception would be told to nobody.
template <typename Act>
Refusal guarded(const Act &act)
{
    try {
        return act();
    } catch (const std::bad_alloc &) {
        return systemReason(ENOMEM);
    }
}

} // namespace

Refusal addBackup(const Snapshot &snapshot, const Platform &platform, const QString &folder)
{
    if (snapshot.failure())
        return snapshot.failure();
    if (Refusal refusal = platform.files.makeFolder(folder))
        return refusal;
    QDir().mkpath(folder); // the user may have taken it away meanwhile
    const BackupNote note = snapshot.note();
    const std::vector<StoredBackup> before = storedBackups(folder);
    const auto last = before.empty() ? std::nullopt : readNote(before.front().path);
    if (last && last->digest == note.digest)
        return {};
    if (Refusal refusal =
            writeBackup(snapshot, note, freePath(folder, snapshot.date()), platform.files))
        return refusal;
    const std::vector<StoredBackup> after = storedBackups(folder);
    for (const StoredBackup &old : surplus(after, snapshot.date(), platform.clock.zone()))
        QFile::remove(old.path);
    return {};
}

Backups::Backups(ProspectStore &store, const Platform &platform, QObject *parent)
    : QObject(parent), m_store(store), m_platform(platform)
{
    m_thread.setMaxThreadCount(1);
    connect(&store, &ProspectStore::aboutToSweep, this, &Backups::backUp);
}

Backups::~Backups()
{
    m_stop.request_stop();
    m_thread.waitForDone();
}

void Backups::startDay()
{
    m_platform.clock.sleep(afterStart, m_stop.get_token()).then(this, [this] {
        const auto dayOf = [zone = m_platform.clock.zone()](Instant instant) {
            return localDateTime(instant, zone).date();
        };
        const std::vector<StoredBackup> backups = storedBackups(folder());
        if (backups.empty() || dayOf(backups.front().date) != dayOf(m_platform.clock.now()))
            backUp();
    });
}

void Backups::backUp()
{
    const auto snapshot = std::make_shared<Snapshot>(m_store, m_platform);
    const auto add = [snapshot, platform = m_platform, folder = folder()] {
        becomeLessUrgent();
        return guarded([&] { return addBackup(*snapshot, platform, folder); });
    };
    QtConcurrent::run(&m_thread, add).then(this, [this](const Refusal &failure) {
        conclude(failure);
    });
}

void Backups::conclude(const Refusal &failure)
{
    if (failure) {
        m_platform.log.write(QStringLiteral("Impossible d’enregistrer la sauvegarde : ") +
                             *failure);
        if (!m_hasFailed)
            Q_EMIT failed(*failure);
    }
    m_hasFailed = failure.has_value();
}

QFuture<Refusal> Backups::saveTo(const QString &path)
{
    const auto snapshot = std::make_shared<Snapshot>(m_store, m_platform);
    const auto write = [snapshot, path, &files = m_platform.files] {
        if (snapshot->failure())
            return snapshot->failure();
        return writeBackup(*snapshot, snapshot->note(), path, files);
    };
    const auto save = [write] { return guarded(write); };
    return QtConcurrent::run(&m_thread, save);
}

QString Backups::folder() const { return backupFolder(m_platform.folders.data()); }

} // namespace quenoria
