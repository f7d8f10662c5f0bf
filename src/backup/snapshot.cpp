#include "backup/snapshot.h"

#include "backup/backup_files.h"
#include "platform/platform.h"
#include "platform/system_reason.h"
#include "store/prospect_store.h"

#include <QCryptographicHash>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

qint64 sendsIn(const ProspectStore &store)
{
    std::size_t sends = 0;
    for (const Channel channel : allChannels)
        store.forEachRecord(channel, [&sends](const QString &, std::span<const Instant> each) {
            sends += each.size();
        });
    return qint64(sends);
}

} // namespace

Snapshot::Snapshot(const ProspectStore &store, const Platform &platform)
    : m_note{platform.clock.now(), qint64(store.allProspects().size()), sendsIn(store), {}}
{
    const QDir folder(platform.folders.data());
    for (const BackedUpFile &each : backedUpFiles()) {
        auto file = std::make_unique<QFile>(folder.filePath(each.name));
        if (file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            m_files.push_back({each.name, std::move(file)});
        else if (each.isAlwaysThere || file->exists())
            m_failure = u"« %1 » : %2"_s.arg(each.name, systemReason(file->errorString()));
    }
}

BackupNote Snapshot::note() const
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    for (const File &file : m_files) {
        hash.addData(file.name.toUtf8() + '\0' + QByteArray::number(file.content->size()) + '\0');
        file.content->seek(0);
        hash.addData(file.content.get());
    }
    BackupNote note = m_note;
    note.digest = hash.result().toHex();
    return note;
}

} // namespace quenoria
