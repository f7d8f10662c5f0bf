#pragma once

#include "model/channel.h"
#include "model/id_set.h"
#include "model/records.h"
#include "model/text_set.h"
#include "store/erased_keys.h"

#include <QHash>

#include <map>

namespace quenoria {

class ProspectStore;

using SendDates = QHash<QString, std::vector<Instant>>; ///< by contact id: whole seconds, in order

/// What a restore must not undo: who wants no message, and what was sent. Apart from the store, so
/// that another thread may have it.
struct MemoryOfSends {
    IdSet stopped;     ///< ids
    IdSet stoppedKeys; ///< their numbers and addresses, as an import would know them
    PerChannel<SendDates> sends;
    std::map<QString, TextSet> recipientsByMonth;
    IdSet doNotContact;      ///< entries of the list
    ErasedKeys erased;       ///< of it
    ErasedKeys deletedStops; ///< of it
};

[[nodiscard]] MemoryOfSends memoryOf(const ProspectStore &store);

/// Takes STOPs and sends of these contacts out of the texts of the files that hold them.
void remember(MemoryOfSends &memory, const IdSet &ids, const PerChannel<QByteArray> &statuses);

/// Takes out of the store whoever was erased since. That is no matter of choice.
void leaveOutErased(const MemoryOfSends &memory, ProspectStore &store);

/// Contacts of the store who want no message as far as the memory knows, and are not marked so.
[[nodiscard]] IdSet forgottenStops(const MemoryOfSends &memory, const ProspectStore &store);

/// How many sends the memory knows of that the store has not.
[[nodiscard]] std::size_t forgottenSends(const MemoryOfSends &memory, const ProspectStore &store);

/// Marks the forgotten stops, also of who is no contact.
void bringBackStops(const MemoryOfSends &memory, ProspectStore &store);

/// Records the forgotten sends, and counts each month's recipients of both.
void bringBackSends(const MemoryOfSends &memory, ProspectStore &store);

} // namespace quenoria
