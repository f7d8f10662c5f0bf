#include "model/json_text.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <string_view>

namespace quenoria {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

bool needsEscape(char c) { return c == '"' || c == '\\' || c == '/' || (c >= 0 && c < 0x20); }

void appendCharacter(QByteArray &out, char c)
{
    switch (c) {
    case '"':
    case '\\':
    case '/':
        out += '\\';
        out += c;
        return;
    case '\n':
        out += "\\n";
        return;
    case '\r':
        out += "\\r";
        return;
    case '\t':
        out += "\\t";
        return;
    default:
        if (!needsEscape(c)) {
            out += c;
            return;
        }
        out += "\\u00";
        out += hexDigits[std::size_t(c) >> 4U];
        out += hexDigits[std::size_t(c) & 0xFU];
    }
}

} // namespace

void appendJsonString(QByteArray &out, const QString &text)
{
    constexpr qsizetype longestUnit = 3; // bytes of UTF-8
    out += '"';
    const qsizetype start = out.size();
    out.resize(start + longestUnit * text.size());
    QStringEncoder encode(QStringEncoder::Utf8);
    out.truncate(encode.appendToBuffer(out.data() + start, text) - out.constData());
    const QByteArrayView utf8 = QByteArrayView(out).sliced(start);
    if (std::count_if(utf8.begin(), utf8.end(), needsEscape) > 0) {
        const QByteArray plain = utf8.toByteArray();
        out.truncate(start);
        for (const char c : plain)
            appendCharacter(out, c);
    }
    out += '"';
}

void appendJsonLine(QByteArray &out, int level)
{
    constexpr std::string_view line = "\n                "; // deeper than any record nests
    out.append(line.data(), 1 + qsizetype(2) * level);
}

void detail::appendJsonMemberName(QByteArray &out, std::string_view name, int level)
{
    constexpr std::string_view before = ",\n";
    constexpr std::string_view after = "\" : ";
    const std::string_view start = before.substr(out.back() == '{' ? 1 : 0);
    const std::size_t indentation = 2 * std::size_t(level);
    const qsizetype size = out.size();
    out.resize(size + qsizetype(start.size() + indentation + 1 + name.size() + after.size()));
    char *end = std::ranges::copy(start, out.data() + size).out;
    end = std::fill_n(end, indentation, ' ');
    *end++ = '"';
    end = std::ranges::copy(name, end).out;
    std::ranges::copy(after, end);
}

void appendJson(QByteArray &out, const QString &text, int /*level*/)
{
    appendJsonString(out, text);
}

void appendJson(QByteArray &out, bool flag, int /*level*/) { out += flag ? "true" : "false"; }

void appendJson(QByteArray &out, Instant instant, int /*level*/)
{
    std::array<char, instantTextLength + 2> quoted;
    quoted.front() = quoted.back() = '"';
    writeInstant(instant, quoted.data() + 1);
    out.append(quoted.data(), qsizetype(quoted.size()));
}

} // namespace quenoria
