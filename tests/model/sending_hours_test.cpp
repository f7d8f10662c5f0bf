#include "model/sending_hours.h"

#include <QTimeZone>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

const QString hour = u"yyyy-MM-dd HH:mm"_s;

struct Row {
    const char *name;
    const char *asked;
    const char *next; ///< the same where it is a usual hour
};

void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }

const Row rows[] = {
    {"AnOrdinaryMorning", "2026-11-25 08:00", "2026-11-25 08:00"},
    {"TheLastMinute", "2026-11-25 19:59", "2026-11-25 19:59"},
    {"TheEvening", "2026-11-25 20:00", "2026-11-26 08:00"},
    {"BeforeDawn", "2026-11-25 07:59", "2026-11-25 08:00"},
    {"SaturdayEveningPassesOverSunday", "2026-11-28 21:00", "2026-11-30 08:00"},
    {"Sunday", "2026-11-29 10:00", "2026-11-30 08:00"},
    {"FridayMayDayLeavesSaturday", "2026-05-01 10:00", "2026-05-02 08:00"},
    {"EasterMonday", "2026-04-06 10:00", "2026-04-07 08:00"},
    {"EasterMondayOfALateEaster", "2038-04-26 10:00", "2038-04-27 08:00"},
    {"EasterMondayOfTheMoonMovedByADay", "2049-04-19 10:00", "2049-04-20 08:00"},
    {"EasterMondayOfTheSecondException", "1981-04-20 10:00", "1981-04-21 08:00"},
    {"GoodFridayIsWorked", "2026-04-03 10:00", "2026-04-03 10:00"},
    {"Ascension", "2026-05-14 10:00", "2026-05-15 08:00"},
    {"WhitMonday", "2026-05-25 10:00", "2026-05-26 08:00"},
    {"ArmisticeEve", "2026-11-10 20:30", "2026-11-12 08:00"},
    {"TheClocksGoForwardOnASunday", "2026-03-28 23:00", "2026-03-30 08:00"},
};

class SendingHours : public testing::TestWithParam<Row> {};

TEST_P(SendingHours, NameTheNextOne)
{
    QDateTime asked = QDateTime::fromString(QString::fromLatin1(GetParam().asked), hour);
    asked.setTimeZone(QTimeZone("Europe/Paris"));
    EXPECT_EQ(nextUsualSendingHour(asked).toString(hour).toStdString(), GetParam().next);
}

INSTANTIATE_TEST_SUITE_P(All, SendingHours, testing::ValuesIn(rows),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
