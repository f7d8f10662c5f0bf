#include "model/contact_rules.h"

#include "model/records.h"

#include <QRegularExpression>
#include <QStringBuilder>
#include <QTextBoundaryFinder>
#include <QVarLengthArray>

#include <unicode/uchar.h>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString addedByHand = u"AJOUT MANUEL"_s; // where other labels have the town

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

bool isNumeric(QStringView character)
{
    const char32_t first = character.size() > 1 && character[0].isHighSurrogate()
                               ? QChar::surrogateToUcs4(character[0], character[1])
                               : char32_t(character[0].unicode());
    return u_getIntPropertyValue(UChar32(first), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

/// Calls visit with each user-perceived character of the text.
template <typename Visit>
void forEachCharacter(const QString &text, Visit &&visit)
{
    if (isAscii(text) && !text.contains(u'\r')) { // "\r\n" is one character
        for (qsizetype i = 0; i < text.size(); ++i)
            visit(QStringView(text).sliced(i, 1));
        return;
    }
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    for (qsizetype end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        visit(QStringView(text).sliced(start, end - start));
        start = end;
    }
}

/// QString::toUpper(), for the many labels of an import: French letters need no table.
QString upperCase(QString text)
{
    for (QChar &c : text) {
        const char16_t unit = c.unicode();
        const bool isAccented = unit >= u'à' && unit <= u'þ' && unit != u'÷';
        if ((unit >= u'a' && unit <= u'z') || isAccented)
            c = QChar(char16_t(unit - (u'a' - u'A')));
        else if (unit > u'Þ' && unit != u'—' && unit != u'’')
            return text.toUpper();
    }
    return text;
}

} // namespace

QString normalizePhone(const QString &text)
{
    QString digits;
    if (isAscii(text)) {
        std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                     [](QChar c) { return c >= u'0' && c <= u'9'; });
        return digits;
    }
    forEachCharacter(text, [&digits](QStringView character) {
        if (isNumeric(character))
            digits += character;
    });
    return digits;
}

QString formatPhone(const QString &text)
{
    constexpr int formattedLength = 10;
    QVarLengthArray<qsizetype, formattedLength> starts;
    forEachCharacter(
        text, [&](QStringView character) { starts.append(character.data() - text.constData()); });
    if (starts.size() != formattedLength)
        return text;
    QString spaced;
    spaced.reserve(text.size() + formattedLength / 2 - 1);
    spaced += text;
    for (int position = formattedLength - 2; position > 0; position -= 2)
        spaced.insert(starts[position], u' ');
    return spaced;
}

qsizetype characterCount(const QString &text)
{
    qsizetype count = 0;
    forEachCharacter(text, [&count](QStringView) { ++count; });
    return count;
}

std::optional<QString> validEmail(const QString &text)
{
    static const QRegularExpression pattern(uR"(\A[A-Z0-9._%+-]+@[A-Z0-9.-]+\.[A-Z]{2,}\z)"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    const QString address = text.trimmed().toLower();
    if (!pattern.match(address).hasMatch())
        return std::nullopt;
    return address;
}

QString contactLabel(const QString &name, const QString &town, const QString &department,
                     const QString &shownPhone)
{
    const QStringView dash = u" — ";
    const QString place = upperCase(name % (town.isEmpty() ? QStringView() : dash) % town);
    return place % u" (" % department % u')' % (shownPhone.isEmpty() ? QStringView() : dash) %
           shownPhone;
}

LabelParts labelParts(QString label)
{
    constexpr auto unicode = QRegularExpression::UseUnicodePropertiesOption;
    static const QRegularExpression phone(uR"(\s+—\s+(?:\+?\d[\d .-]*)$)"_s, unicode);
    static const QRegularExpression whole(uR"(^(.*?)\s+—\s+(.*?)\s+\((?:\d{2,3}|2A|2B)\)$)"_s,
                                          unicode | QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression department(uR"(\s+\((?:\d{2,3}|2A|2B)\)$)"_s, unicode);
    label.remove(phone);
    const QRegularExpressionMatch match = whole.match(label);
    if (!match.hasMatch())
        return {label.remove(department), {}};
    const QString town = match.captured(2);
    const bool typedByHand = town.compare(addedByHand, Qt::CaseInsensitive) == 0;
    return {match.captured(1), typedByHand ? QString() : town};
}

bool isLabelOfAdding(const QString &label) { return label.contains(u" — %1 ("_s.arg(addedByHand)); }

QString duplicateKey(const Prospect &prospect)
{
    QString digits = normalizePhone(prospect.phone);
    if (!digits.isEmpty())
        return digits;
    if (prospect.email) {
        if (const auto address = validEmail(*prospect.email))
            return u"email:"_s + *address;
    }
    return prospect.id;
}

IdSet keysOf(const Prospect &contact)
{
    IdSet keys{contact.id, duplicateKey(contact)};
    if (contact.email)
        keys.insert(u"email:"_s + contact.email->toLower());
    return keys;
}

} // namespace quenoria
