#include "ui/sheets/history_rows.h"

#include "model/local_time.h"
#include "model/text_order.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quenoria {

QString shownMoment(Instant instant, const QTimeZone &zone)
{
    const QDateTime local = localDateTime(instant, zone);
    const QLocale locale = displayLocale();
    const QString time = locale.toString(local.time(), QLocale::ShortFormat);
    return u"%1 à %2"_s.arg(locale.toString(local.date(), u"d MMMM yyyy"_s), time);
}

std::vector<HistoryRow> historyRows(const ProspectStore &store, const Prospect &prospect,
                                    const QTimeZone &zone)
{
    std::vector<Instant> history = store.sendHistory(prospect);
    std::ranges::stable_sort(history, std::greater());
    std::vector<HistoryRow> rows;
    rows.reserve(history.size());
    for (const Instant instant : history) {
        rows.push_back(
            {rows.empty() ? u"Dernier envoi"_s : u"Envoi précédent"_s, shownMoment(instant, zone)});
    }
    return rows;
}

} // namespace quenoria
