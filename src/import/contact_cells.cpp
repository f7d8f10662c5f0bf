#include "import/contact_cells.h"

#include <QRegularExpression>

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::size_t mobileLength = 10;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string digitsOf(std::string_view text)
{
    std::string digits;
    std::ranges::copy_if(text, std::back_inserter(digits), isDigit);
    return digits;
}

/// The national form of an international number; any other is returned as is.
std::string national(std::string digits)
{
    for (const std::string_view prefix : {"0033", "33"}) {
        if (digits.starts_with(prefix))
            return digits.replace(0, prefix.size(), 1, '0');
    }
    return digits;
}

const QRegularExpression &mobilePattern()
{
    static const QRegularExpression pattern(
        uR"((?:(?:\+|00)33[ .-]?[67]|0[67])(?:[ .-]?\d{2}){4})"_s);
    return pattern;
}

/// The digits of a mobile that stands among other text.
std::string mobileDigitsWithin(std::string_view cell)
{
    const auto match =
        mobilePattern().match(QString::fromUtf8(cell.data(), qsizetype(cell.size())));
    return national(digitsOf(match.captured().toStdString()));
}

std::string mobileCandidate(std::string_view cell)
{
    std::string digits = digitsOf(cell);
    if (digits.starts_with("0033") || digits.starts_with("33"))
        return national(digits);
    if (digits.size() + 1 == mobileLength && (digits[0] == '6' || digits[0] == '7'))
        return digits.insert(0, 1, '0');
    return digits.size() > mobileLength ? mobileDigitsWithin(cell) : digits;
}

bool isAlphanumeric(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || isDigit(c);
}

bool isLocalPart(char c)
{
    constexpr std::string_view signs = ".-_+!#$%&'*/=?^`{|}~";
    return isAlphanumeric(c) || signs.find(c) != std::string_view::npos;
}

/// Length of the host label that the text begins with: up to 63 letters, digits and inner hyphens.
std::size_t labelLength(std::string_view text)
{
    constexpr std::size_t longest = 63;
    if (text.empty() || !isAlphanumeric(text.front()))
        return 0;
    std::size_t length = 1;
    for (std::size_t i = 1; i < std::min(text.size(), longest); ++i) {
        if (isAlphanumeric(text[i]))
            length = i + 1;
        else if (text[i] != '-')
            break;
    }
    return length;
}

/// Length of the host name that the text begins with, 0 when it has fewer than two labels.
std::size_t hostLength(std::string_view text)
{
    const std::size_t first = labelLength(text);
    std::size_t length = first;
    while (length > 0 && length < text.size() && text[length] == '.') {
        const std::size_t label = labelLength(text.substr(length + 1));
        if (label == 0)
            break;
        length += 1 + label;
    }
    return length > first ? length : 0;
}

std::optional<QString> addressIn(std::string_view text)
{
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + 1)) {
        std::size_t start = at;
        while (start > 0 && isLocalPart(text[start - 1]))
            --start;
        const std::size_t host = hostLength(text.substr(at + 1));
        if (start < at && host > 0)
            return QString::fromLatin1(text.data() + start, qsizetype(at + 1 + host - start))
                .toLower();
    }
    return std::nullopt;
}

bool isAscii(char c) { return static_cast<signed char>(c) >= 0; }

} // namespace

std::optional<QString> mobileIn(std::string_view cell)
{
    const std::string mobile = mobileCandidate(cell);
    if (mobile.size() != mobileLength || !(mobile.starts_with("06") || mobile.starts_with("07")))
        return std::nullopt;
    return QString::fromLatin1(mobile.data(), qsizetype(mobile.size()));
}

std::vector<QString> mobilesWithin(std::string_view cell)
{
    std::vector<QString> mobiles;
    auto matches =
        mobilePattern().globalMatch(QString::fromUtf8(cell.data(), qsizetype(cell.size())));
    while (matches.hasNext())
        mobiles.push_back(
            QString::fromStdString(national(digitsOf(matches.next().captured().toStdString()))));
    return mobiles;
}

std::optional<QString> numberIn(std::string_view cell)
{
    const std::string digits = national(digitsOf(cell));
    if (digits.size() < mobileLength)
        return std::nullopt;
    return QString::fromStdString(digits);
}

std::optional<QString> emailIn(std::string_view cell)
{
    if (cell.find('@') == std::string_view::npos)
        return std::nullopt;
    if (std::ranges::all_of(cell, isAscii))
        return addressIn(cell);
    // a few foreign letters have an ASCII one as their lower case
    const QString text = QString::fromUtf8(cell.data(), qsizetype(cell.size()));
    return addressIn(text.toLower().toStdString());
}

} // namespace quenoria
