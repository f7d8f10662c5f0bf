#pragma once

#include "model/instant.h"

#include <QTimeZone>

#include <vector>

namespace quenoria {

/// Tells the months of very many instants in a zone. Asking the zone about each would take longer
/// than all else, so the beginnings of the months that come up are kept.
class MonthCalendar {
public:
    static constexpr int months = 12 * 10'000; ///< of the years that four digits tell

    explicit MonthCalendar(const QTimeZone &zone);

    /// Counted from January of the year 0. What lies beyond four digits is told as their end.
    int monthOf(Instant instant);

    [[nodiscard]] static QDate firstDayOf(int month);

private:
    Instant startOf(int month);

    QTimeZone m_zone;
    std::vector<Instant> m_starts; ///< unknown while it is the least instant
};

} // namespace quenoria
