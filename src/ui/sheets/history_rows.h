#pragma once

#include "store/prospect_store.h"

#include <QTimeZone>

namespace quenoria {

/// "10 mars 2026 à 10:00", in the user's zone.
[[nodiscard]] QString shownMoment(Instant instant, const QTimeZone &zone);

/// One confirmed send as the history shows it.
struct HistoryRow {
    QString label; ///< "Dernier envoi" for the newest, "Envoi précédent" for the others
    QString date;  ///< "10 mars 2026 à 10:00", in the user's zone
    bool operator==(const HistoryRow &) const = default;
};

/// The contact's confirmed SMS, newest first, whatever their order in the file.
[[nodiscard]] std::vector<HistoryRow> historyRows(const ProspectStore &store,
                                                  const Prospect &prospect, const QTimeZone &zone);

} // namespace quenoria
