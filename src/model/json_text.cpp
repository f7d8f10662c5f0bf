#include "model/json_text.h"

#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <string_view>

namespace quenoria {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

bool needsEscape(char c) { return c == '"' || c == '\\' || c == '/' || (c >= 0 && c < 0x20); }

void appendCharacter(std::string &out, char c)
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

/// Nearly every text: letters without accents, digits and addresses, quoted as they are.
bool appendPlain(std::string &out, const QString &text)
{
    const std::size_t start = out.size();
    out.resize(start + std::size_t(text.size()) + 2);
    char *to = out.data() + start;
    *to++ = '"';
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit >= 0x80 || needsEscape(char(unit))) {
            out.resize(start);
            return false;
        }
        *to++ = char(unit);
    }
    *to = '"';
    return true;
}

} // namespace

void appendJsonString(std::string &out, const QString &text)
{
    if (appendPlain(out, text))
        return;
    QStringEncoder encode(QStringEncoder::Utf8);
    const QByteArray utf8 = encode.encode(text);
    out += '"';
    if (std::ranges::none_of(utf8, needsEscape)) {
        out.append(utf8.constData(), std::size_t(utf8.size()));
    } else {
        for (const char c : utf8)
            appendCharacter(out, c);
    }
    out += '"';
}

void appendJsonLine(std::string &out, int level)
{
    out += '\n';
    out.append(2 * std::size_t(level), ' ');
}

void detail::appendJsonMemberName(std::string &out, std::string_view name, int level)
{
    if (out.back() != '{')
        out += ',';
    appendJsonLine(out, level);
    out += '"';
    out += name;
    out += "\" : ";
}

void appendJson(std::string &out, const QString &text, int /*level*/)
{
    appendJsonString(out, text);
}

void appendJson(std::string &out, bool flag, int /*level*/) { out += flag ? "true" : "false"; }

void appendJson(std::string &out, Instant instant, int /*level*/)
{
    std::array<char, instantTextLength + 2> quoted;
    quoted.front() = quoted.back() = '"';
    writeInstant(instant, quoted.data() + 1);
    out.append(quoted.data(), quoted.size());
}

} // namespace quenoria
