#pragma once

#include "model/channel.h"
#include "model/instant.h"

#include <QStringList>
#include <QTimeZone>

namespace quenoria {

class ProspectStore;

/// A run as it is about to begin: contacts in the order of their turns.
struct PlannedRun {
    Channel channel = {};
    QStringList ids;
    Instant now;
    QTimeZone zone;       ///< the user's
    bool freePro = false; ///< no monthly limit
};

/// What a run would meet, found before it begins. Lists hold ids in the order of the run; one
/// contact may stand in several.
struct Preflight {
    QStringList recent;      ///< already contacted in the last 30 days, on any channel
    QStringList unreachable; ///< no number, no valid address
    QStringList withoutFile; ///< the file to attach is gone
    QStringList beyondQuota; ///< that the month's quota will refuse
    QStringList unfinished;  ///< their template holds blanks to be filled in
    QStringList blanks;      ///< those blanks, each once
    int beforeQuota = 0;     ///< how many have their turn before the first that the quota refuses
    bool operator==(const Preflight &) const = default;
};

[[nodiscard]] Preflight preflight(const ProspectStore &store, const PlannedRun &run);

} // namespace quenoria
