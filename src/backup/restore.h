#pragma once

#include "backup/contact_card.h"
#include "backup/memory_of_sends.h"
#include "backup/snapshot.h"
#include "platform/platform.h"

#include <QStringList>

#include <stop_token>
#include <variant>

namespace quenoria {

/// The present, apart from the store, so that another thread may compare it.
struct PresentState {
    ContactCards cards;
    MemoryOfSends memory;
};

[[nodiscard]] PresentState presentState(const ProspectStore &store);

/// What a restore would change. Contacts by their labels, in the order of the alphabet.
struct RestorePreview {
    std::optional<Instant> date; ///< of the backup, if it says so
    std::size_t contacts = 0;    ///< in it
    QStringList added;
    QStringList removed;
    QStringList changed;
    QStringList stopped;   ///< who wants no message now, and did not say so then
    std::size_t sends = 0; ///< that only exist now

    /// The present's, with what newer backups know of the contacts that were deleted since.
    MemoryOfSends memory;
};

/// Reads a backup and compares. Gives what is wrong with it, in the user's words. On any thread.
[[nodiscard]] std::variant<RestorePreview, QString>
previewRestore(const QString &path, const PresentState &present, const Platform &platform,
               const std::stop_token &stop = {});

/// What is to be restored, and what is kept of the present.
struct RestoreOrder {
    QString path;
    std::shared_ptr<const Snapshot> present; ///< backed up first
    MemoryOfSends memory;
    bool keepsStops = true;
    bool keepsSends = true;
};

/// Makes everything ready for decideRestore(), or leaves everything as it was and says why. On any
/// thread.
[[nodiscard]] Refusal prepareRestore(const RestoreOrder &order, const Platform &platform);

} // namespace quenoria
