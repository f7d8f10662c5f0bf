#include "model/instant.h"

#include <QByteArray>

#include <algorithm>
#include <string_view>

using namespace std::string_view_literals;

namespace quenoria {

namespace {

std::optional<int> number(QByteArrayView digits)
{
    int value = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9')
            return std::nullopt;
        value = value * 10 + (digit - '0');
    }
    return value;
}

/// A file holds one instant per send: a general formatter would take most of the time of writing
/// it.
void writeTwoDigits(char *to, unsigned value)
{
    to[0] = char('0' + value / 10);
    to[1] = char('0' + value % 10);
}

bool hasSeparators(QByteArrayView text)
{
    return text.size() == instantTextLength && text[4] == '-' && text[7] == '-' &&
           text[10] == 'T' && text[13] == ':' && text[16] == ':' && text[19] == 'Z';
}

} // namespace

void writeInstant(Instant instant, char *to)
{
    using namespace std::chrono;
    const auto second = floor<seconds>(instant);
    const auto day = floor<days>(second);
    const year_month_day date{day};
    const hh_mm_ss time{second - day};
    constexpr unsigned century = 100;
    const auto year = unsigned(int(date.year()));
    std::ranges::copy("0000-00-00T00:00:00Z"sv, to);
    writeTwoDigits(to, year / century);
    writeTwoDigits(to + 2, year % century);
    writeTwoDigits(to + 5, unsigned(date.month()));
    writeTwoDigits(to + 8, unsigned(date.day()));
    writeTwoDigits(to + 11, unsigned(time.hours().count()));
    writeTwoDigits(to + 14, unsigned(time.minutes().count()));
    writeTwoDigits(to + 17, unsigned(time.seconds().count()));
}

QByteArray instantText(Instant instant)
{
    QByteArray text(instantTextLength, Qt::Uninitialized);
    writeInstant(instant, text.data());
    return text;
}

std::optional<Instant> instantFromText(QByteArrayView text)
{
    using namespace std::chrono;
    if (!hasSeparators(text))
        return std::nullopt;
    const auto year = number(text.sliced(0, 4));
    const auto month = number(text.sliced(5, 2));
    const auto day = number(text.sliced(8, 2));
    const auto hour = number(text.sliced(11, 2));
    const auto minute = number(text.sliced(14, 2));
    const auto second = number(text.sliced(17, 2));
    if (!year || !month || !day || !hour || !minute || !second)
        return std::nullopt;
    const year_month_day date{std::chrono::year{*year}, std::chrono::month(unsigned(*month)),
                              std::chrono::day(unsigned(*day))};
    if (!date.ok() || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    return sys_days{date} + hours{*hour} + minutes{*minute} + seconds{*second};
}

} // namespace quenoria
