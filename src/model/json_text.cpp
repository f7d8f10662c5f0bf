#include "model/json_text.h"

#include <array>
#include <string_view>

namespace quenoria {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

void appendEscape(QByteArray &out, char c)
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
        out += "\\u00";
        out += hexDigits[std::size_t(c) >> 4U];
        out += hexDigits[std::size_t(c) & 0xFU];
    }
}

bool needsEscape(char c) { return c == '"' || c == '\\' || c == '/' || (c >= 0 && c < 0x20); }

} // namespace

void appendJsonString(QByteArray &out, const QString &text)
{
    out += '"';
    const QByteArray utf8 = text.toUtf8();
    qsizetype plain = 0;
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        if (!needsEscape(utf8[i]))
            continue;
        out.append(utf8.constData() + plain, i - plain);
        appendEscape(out, utf8[i]);
        plain = i + 1;
    }
    out.append(utf8.constData() + plain, utf8.size() - plain);
    out += '"';
}

void appendJsonLine(QByteArray &out, int level)
{
    out += '\n';
    out.append(qsizetype(2) * level, ' ');
}

void appendJson(QByteArray &out, const QString &text, int /*level*/)
{
    appendJsonString(out, text);
}

void appendJson(QByteArray &out, bool flag, int /*level*/) { out += flag ? "true" : "false"; }

void appendJson(QByteArray &out, Instant instant, int /*level*/)
{
    out += '"';
    out += instantText(instant);
    out += '"';
}

} // namespace quenoria
