#include "model/lone_surrogates.h"

#include <QChar>

#include <algorithm>
#include <charconv>
#include <optional>

namespace quenoria {

namespace {

/// The code unit of "\\uXXXX" at the position, if that is what stands there.
std::optional<char16_t> escapedUnit(std::string_view text, std::size_t at)
{
    constexpr std::size_t digits = 4;
    if (text.substr(at, 2) != "\\u" || text.size() < at + 2 + digits)
        return std::nullopt;
    unsigned unit = 0;
    const char *first = text.data() + at + 2;
    const auto [end, error] = std::from_chars(first, first + digits, unit, 16);
    return error == std::errc() && end == first + digits ? std::optional(char16_t(unit))
                                                         : std::nullopt;
}

constexpr std::size_t nowhere = std::string_view::npos;

/// Where the next half of a character stands that was escaped alone.
std::size_t loneSurrogate(std::string_view text, std::size_t from = 0)
{
    constexpr std::size_t length = 6; ///< of an escape
    for (std::size_t at = text.find('\\', from); at != nowhere; at = text.find('\\', at)) {
        const auto unit = escapedUnit(text, at);
        const auto next = unit ? escapedUnit(text, at + length) : std::nullopt;
        const bool isPair =
            unit && QChar::isHighSurrogate(*unit) && next && QChar::isLowSurrogate(*next);
        if (unit && !isPair && QChar::isSurrogate(*unit))
            return at;
        at += isPair ? 2 * length : unit ? length : 2;
    }
    return nowhere;
}

} // namespace

bool hasLoneSurrogate(std::string_view json) { return loneSurrogate(json) != nowhere; }

void replaceLoneSurrogates(char *json, std::size_t size)
{
    const std::string_view text(json, size);
    for (std::size_t at = loneSurrogate(text); at != nowhere; at = loneSurrogate(text, at))
        std::ranges::copy(std::string_view("\\ufffd"), json + at);
}

} // namespace quenoria
