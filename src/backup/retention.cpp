#include "backup/retention.h"

#include "model/local_time.h"

#include <set>

namespace quenoria {

namespace {

constexpr qint64 mostBytes = 500'000'000;
constexpr qint64 days = 7;
constexpr qint64 daysOfWeeks = 28;
constexpr int months = 12;

/// Weeks and months that already have the backup that stands for them.
struct Periods {
    std::set<std::pair<int, int>> weeks;
    std::set<int> months;

    /// Whether a backup of that day is the first one seen of its week or month.
    bool want(QDate day, QDate today)
    {
        int weekYear = 0;
        const int week = day.weekNumber(&weekYear);
        const int month = monthOf(day);
        const qint64 age = day.daysTo(today);
        const bool isWanted =
            age < days || (age < daysOfWeeks && !weeks.contains({weekYear, week})) ||
            (monthOf(today) - month < quenoria::months && !months.contains(month));
        if (isWanted) {
            weeks.insert({weekYear, week});
            months.insert(month);
        }
        return isWanted;
    }

private:
    static int monthOf(QDate day) { return day.year() * quenoria::months + day.month(); }
};

} // namespace

std::vector<StoredBackup> surplus(const std::vector<StoredBackup> &newestFirst, Instant now,
                                  const QTimeZone &zone)
{
    const QDate today = localDateTime(now, zone).date();
    Periods periods;
    qint64 total = 0;
    bool isFull = false; // then an older one does not stay in the place of a newer one
    std::vector<StoredBackup> gone;
    for (const StoredBackup &backup : newestFirst) {
        const bool isNewest = &backup == &newestFirst.front();
        const bool isWanted = periods.want(localDateTime(backup.date, zone).date(), today);
        isFull = isFull || (isWanted && !isNewest && total + backup.size > mostBytes);
        if (isWanted && !isFull)
            total += backup.size;
        else
            gone.push_back(backup);
    }
    return gone;
}

} // namespace quenoria
