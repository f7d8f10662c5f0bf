#include "store/month_calendar.h"

#include <QDateTime>

#include <algorithm>

namespace quenoria {

namespace {

constexpr int monthsOfYear = 12;
constexpr int first = monthsOfYear; ///< there is no year 0 in a calendar of the toolkit
constexpr Instant unknown = Instant::min();

/// In UTC, a day away from the zone's at most.
int nearMonthOf(Instant instant)
{
    const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(instant)};
    return int(day.year()) * monthsOfYear + int(unsigned(day.month())) - 1;
}

} // namespace

MonthCalendar::MonthCalendar(const QTimeZone &zone) : m_zone(zone), m_starts(months + 1, unknown) {}

int MonthCalendar::monthOf(Instant instant)
{
    const int near = std::clamp(nearMonthOf(instant), first, months - 1);
    if (instant < startOf(near))
        return std::max(near - 1, first);
    return instant < startOf(near + 1) ? near : std::min(near + 1, months - 1);
}

QDate MonthCalendar::firstDayOf(int month)
{
    return {month / monthsOfYear, month % monthsOfYear + 1, 1};
}

Instant MonthCalendar::startOf(int month)
{
    Instant &start = m_starts[std::size_t(month)];
    if (start == unknown)
        start = Instant(
            std::chrono::milliseconds(firstDayOf(month).startOfDay(m_zone).toMSecsSinceEpoch()));
    return start;
}

} // namespace quenoria
