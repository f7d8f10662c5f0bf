#include "model/sending_hours.h"

#include <QTimeZone>

#include <algorithm>
#include <array>

namespace quenoria {

namespace {

const QTime opening(8, 0);
const QTime closing(20, 0);

struct Day {
    int month;
    int day;
};

constexpr std::array<Day, 8> fixedHolidays{
    {{1, 1}, {5, 1}, {5, 8}, {7, 14}, {8, 15}, {11, 1}, {11, 11}, {12, 25}}};

/// Easter Monday, Ascension and Whit Monday.
constexpr std::array daysAfterEaster{1, 39, 50};

bool isUsualDay(QDate date) { return date.dayOfWeek() != Qt::Sunday && !isPublicHoliday(date); }

} // namespace

/// The first Sunday after the ecclesiastical full moon of spring, by Gauss's reckoning with the
/// two exceptions of the Gregorian epacts.
QDate easterSunday(int year)
{
    const int golden = year % 19;
    const int century = year / 100;
    const int moonShift = (13 + 8 * century) / 25;
    const int leapShift = century - century / 4;
    int moon = (15 - moonShift + leapShift + 19 * golden) % 30; // days after 21 March
    if (moon == 29 || (moon == 28 && golden > 10))
        --moon;
    const QDate fullMoon = QDate(year, 3, 21).addDays(moon);
    return fullMoon.addDays(7 - fullMoon.dayOfWeek() % 7);
}

bool isPublicHoliday(QDate date)
{
    const auto isFixed = [date](Day day) {
        return date.month() == day.month && date.day() == day.day;
    };
    const qint64 afterEaster = easterSunday(date.year()).daysTo(date);
    return std::ranges::any_of(fixedHolidays, isFixed) ||
           std::ranges::find(daysAfterEaster, afterEaster) != daysAfterEaster.end();
}

bool isUsualSendingHour(const QDateTime &local)
{
    return isUsualDay(local.date()) && local.time() >= opening && local.time() < closing;
}

QDateTime nextUsualSendingHour(const QDateTime &local)
{
    if (isUsualSendingHour(local))
        return local;
    QDate day = local.date();
    if (local.time() >= opening)
        day = day.addDays(1);
    while (!isUsualDay(day))
        day = day.addDays(1);
    return QDateTime(day, opening, local.timeZone());
}

} // namespace quenoria
