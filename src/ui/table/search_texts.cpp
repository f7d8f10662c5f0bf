#include "ui/table/search_texts.h"

#include "model/text_order.h"
#include "ui/table/contact_columns.h"

#include <QLocale>

namespace quenoria {

namespace {

constexpr char separatorByte = '\xFF'; // in no UTF-8

/// Whether the locale lowers every letter of Latin-1 as Unicode's own table does.
bool lowersAsUnicode(const QLocale &locale)
{
    const QLocale::Language language = locale.language();
    return language != QLocale::Turkish && language != QLocale::Azerbaijani &&
           language != QLocale::Lithuanian;
}

/// The lower case of a letter of French; another character as it is.
char16_t lowered(char16_t c)
{
    const bool isUpper = (c >= u'A' && c <= u'Z') || (c >= u'À' && c <= u'Þ' && c != u'×');
    return isUpper ? char16_t(c + 0x20) : c == u'Œ' ? u'œ' : c;
}

/// Appends nearly every character of a French text; false for one that the locale must fold.
bool appendSimple(std::string &out, char16_t c)
{
    const char16_t lower = lowered(c);
    if (lower < 0x80) {
        out += char(lower);
    } else if (lower < 0x100 || lower == u'œ') {
        out += char(0xC0U | (lower >> 6U));
        out += char(0x80U | (lower & 0x3FU));
    } else if (lower >= u'‐' && lower <= u'…') { // dashes, quotation marks, bullet
        out += '\xE2';
        out += '\x80';
        out += char(0x80U | (lower & 0x3FU));
    } else if (c == textSeparator) {
        out += separatorByte;
    } else {
        return false;
    }
    return true;
}

std::string foldedByLocale(const QString &text, const QLocale &locale)
{
    std::string folded;
    const QString lower = locale.toLower(text.normalized(QString::NormalizationForm_C));
    for (qsizetype part = 0, end = 0; end >= 0; part = end + 1) {
        end = lower.indexOf(textSeparator, part);
        folded += QStringView(lower).sliced(part, (end < 0 ? lower.size() : end) - part).toUtf8();
        if (end >= 0)
            folded += separatorByte;
    }
    return folded;
}

} // namespace

/// A general way would take most of the time of the first letter.
void appendFolded(std::string &out, const QString &text)
{
    static const QLocale locale = displayLocale();
    static const bool isSimple = lowersAsUnicode(locale);
    const std::size_t start = out.size();
    for (const QChar c : text) {
        if (!isSimple || !appendSimple(out, c.unicode())) {
            out.resize(start);
            out += foldedByLocale(text, locale);
            return;
        }
    }
}

std::string foldedForSearch(const QString &text)
{
    std::string folded;
    appendFolded(folded, text);
    return folded;
}

} // namespace quenoria
