#include "backup/restore.h"

#include "backup/backup_files.h"
#include "backup/backup_list.h"
#include "backup/backups.h"
#include "backup/pending_restore.h"
#include "backup/unpacked_backup.h"
#include "backup/unrestorable.h"
#include "store/channel_records.h"

#include <set>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString notBackedUp = u"L’état actuel n’a pas pu être sauvegardé d’abord ; rien n’a été "
                            "restauré : "_s;
const QString notWritten = u"Les STOP donnés depuis n’ont pas pu être gardés ; rien n’a été "
                           "restauré : "_s;
const QString noMemory = u"La mémoire disponible ne suffit pas pour lire cette sauvegarde."_s;

template <typename Act>
auto guarded(const Act &act) -> std::variant<decltype(act()), QString>
{
    try {
        return act();
    } catch (const Unrestorable &failure) {
        return failure.reason;
    } catch (const std::bad_alloc &) {
        return noMemory;
    }
}

IdSet missingIn(const ContactCards &cards, const ContactCards &those)
{
    IdSet ids;
    for (const auto &[id, card] : those.asKeyValueRange()) {
        if (!cards.contains(id))
            ids.insert(id);
    }
    return ids;
}

QStringList labelsOf(const IdSet &ids, const ContactCards &cards, const ContactCards &others)
{
    QStringList labels;
    for (const QString &id : ids) {
        const auto found = cards.constFind(id);
        const QString other = others.value(id).contact.label;
        labels << (found != cards.cend() ? found->contact.label : other.isEmpty() ? id : other);
    }
    labels.sort(Qt::CaseInsensitive);
    return labels;
}

QString sendsFile(Channel channel)
{
    return QString::fromUtf16(descriptor(channelRecords(channel).statuses).fileName);
}

/// Nothing of a channel that is newer than the archive.
PerChannel<QByteArray> sendsIn(const BackupArchive &archive)
{
    PerChannel<QByteArray> statuses;
    for (const Channel channel : allChannels) {
        if (archive.holds(sendsFile(channel)))
            statuses[std::size_t(channel)] = archive.bytes(sendsFile(channel));
    }
    return statuses;
}

using SeenFiles = PerChannel<std::set<std::pair<quint64, quint32>>>;

/// Whether a file of sends was not seen before.
bool noteFiles(SeenFiles &seen, const BackupArchive &archive)
{
    bool isNew = false;
    for (const Channel channel : allChannels) {
        const auto print = archive.fingerprint(sendsFile(channel));
        isNew = seen[std::size_t(channel)].insert(print).second || isNew;
    }
    return isNew;
}

/// A contact that was deleted took its STOP along, but a newer backup may hold it.
void rememberDeleted(MemoryOfSends &memory, const IdSet &ids, const QString &folder, Instant since)
{
    SeenFiles seen;
    for (const StoredBackup &newer : storedBackups(folder)) {
        if (ids.empty() || newer.date <= since)
            return;
        try {
            const BackupArchive archive(newer.path);
            if (noteFiles(seen, archive))
                remember(memory, ids, sendsIn(archive));
        } catch (const Unrestorable &) {
            continue; // it cannot be restored either
        }
    }
}

IdSet changedCards(const ContactCards &present, const ContactCards &then)
{
    IdSet ids;
    for (const auto &[id, card] : then.asKeyValueRange()) {
        const auto now = present.constFind(id);
        if (now != present.cend() && *now != card)
            ids.insert(id);
    }
    return ids;
}

RestorePreview compare(const BackupArchive &archive, const PresentState &present,
                       const ProspectStore &store, const QString &folder)
{
    const ContactCards then = cardsOf(store);
    const IdSet added = missingIn(present.cards, then);
    RestorePreview preview;
    if (archive.note())
        preview.date = archive.note()->date;
    preview.contacts = store.allProspects().size();
    preview.memory = present.memory;
    rememberDeleted(preview.memory, added, folder, preview.date.value_or(Instant::min()));
    preview.added = labelsOf(added, then, {});
    preview.removed = labelsOf(missingIn(then, present.cards), present.cards, {});
    preview.changed = labelsOf(changedCards(present.cards, then), then, {});
    preview.stopped = labelsOf(forgottenStops(preview.memory, store), then, present.cards);
    preview.sends = forgottenSends(preview.memory, store);
    return preview;
}

/// Of the list of those who are not to be contacted; who was erased stays so in any case.
IdSet entriesToKeep(const RestoreOrder &order)
{
    IdSet entries = order.memory.doNotContact;
    if (!order.keepsStops)
        std::erase_if(entries, [](const QString &entry) { return !ErasedKeys().take(entry); });
    return entries;
}

} // namespace

PresentState presentState(const ProspectStore &store) { return {cardsOf(store), memoryOf(store)}; }

std::variant<RestorePreview, QString> previewRestore(const QString &path,
                                                     const PresentState &present,
                                                     const Platform &platform,
                                                     const std::stop_token &stop)
{
    return guarded([&] {
        const BackupArchive archive(path, stop);
        const UnpackedBackup backup(archive, platform);
        leaveOutErased(present.memory, backup.store());
        return compare(archive, present, backup.store(), backupFolder(platform.folders.data()));
    });
}

Refusal prepareRestore(const RestoreOrder &order, const Platform &platform)
{
    const auto outcome = guarded([&] {
        UnpackedBackup backup(BackupArchive(order.path), platform);
        leaveOutErased(order.memory, backup.store());
        if (order.keepsStops)
            bringBackStops(order.memory, backup.store());
        if (const IdSet entries = entriesToKeep(order); !entries.empty()) {
            if (const Refusal refusal = backup.store().addToDoNotContact(entries))
                throw Unrestorable{notWritten + *refusal};
        }
        if (order.keepsSends)
            bringBackSends(order.memory, backup.store());
        // The backup of the present may push the one that is restored out of the folder.
        if (const Refusal refusal =
                addBackup(*order.present, platform, backupFolder(platform.folders.data())))
            throw Unrestorable{notBackedUp + *refusal};
        backup.keep();
        return true;
    });
    const auto *failure = std::get_if<QString>(&outcome);
    return failure ? Refusal(*failure) : Refusal();
}

} // namespace quenoria
