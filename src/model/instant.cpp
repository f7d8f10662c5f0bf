#include "model/instant.h"

#include <QByteArray>

#include <array>
#include <cstdio>

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

bool hasSeparators(QByteArrayView text)
{
    return text.size() == instantTextLength && text[4] == '-' && text[7] == '-' &&
           text[10] == 'T' && text[13] == ':' && text[16] == ':' && text[19] == 'Z';
}

} // namespace

QByteArray instantText(Instant instant)
{
    using namespace std::chrono;
    const auto second = floor<seconds>(instant);
    const auto day = floor<days>(second);
    const year_month_day date{day};
    const hh_mm_ss time{second - day};
    std::array<char, 40> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                                     int(date.year()), unsigned(date.month()), unsigned(date.day()),
                                     int(time.hours().count()), int(time.minutes().count()),
                                     int(time.seconds().count()));
    return QByteArray(buffer.data(), length);
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
