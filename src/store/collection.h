#pragma once

#include "model/pieces.h"
#include "store/change.h"

#include <QString>

#include <functional>
#include <span>

namespace quenoria {

struct StoreState;

/// The thirteen collections that have a file, in the order of their descriptors.
enum class Collection {
    customProspects,
    statuses,
    messageTemplates,
    messageAssignments,
    emailStatuses,
    emailTemplates,
    emailAssignments,
    emailOverrides,
    contactOverrides,
    attachmentPaths,
    deletedProspectIDs,
    departments,
    smsMonthlyRecipientsByMonth,
};

/// What a file held.
struct DecodedFile {
    std::function<void(StoreState &state)> adopt; ///< puts it in the place of the collection
    bool isAsWritten; ///< writing it gives the same bytes, or is left to the next change
};

/// Everything about one collection. The store loads, saves, announces and forgets by these rows,
/// and knows a collection by nothing else.
struct CollectionDescriptor {
    Collection collection;
    const char16_t *fileName;
    const char16_t *saveFailure; ///< log line, followed by the system's error text

    /// What a change of it means to those who show contacts; the ids are those concerned.
    Change (*change)(Collection collection, const IdSet &ids);
    bool shapesList = false; ///< the merged list is made from it

    /// When the entries of a deleted contact leave it, counted from 1; 0: it has no such entries.
    int deletionTurn = 0;
    bool startUpWrites = true;
    bool isHistory = false; ///< of sends; a start may show the contacts before it reads it

    // The way to its member.
    void (*write)(const StoreState &state, const TakePiece &take) = nullptr;
    std::optional<DecodedFile> (*decode)(const QByteArray &bytes) = nullptr; ///< on any thread
    // With a deletionTurn only.
    void (*forget)(StoreState &state, const IdSet &ids) = nullptr;
    /// Gives another contact the same entry, unless it has one already.
    void (*copy)(StoreState &state, const QString &from, const QString &to) = nullptr;
    bool (*holds)(const StoreState &state, const QString &id) = nullptr; ///< an entry of it
};

/// The thirteen, in the order in which a start writes them.
[[nodiscard]] std::span<const CollectionDescriptor> collections();

[[nodiscard]] const CollectionDescriptor &descriptor(Collection collection);

} // namespace quenoria
