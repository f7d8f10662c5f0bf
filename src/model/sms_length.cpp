#include "model/sms_length.h"

#include <algorithm>
#include <map>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QStringView basicAlphabet =
    u"@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
    "¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà";
constexpr QStringView extendedAlphabet = u"\f^{}\\[~]|€";

/// What one part of a message holds, alone and as one of several.
struct Capacity {
    int alone;
    int ofSeveral;
};
constexpr Capacity shortAlphabet{160, 153};
constexpr Capacity longAlphabet{70, 67};

const std::map<char32_t, QString> &plainLikenesses()
{
    static const std::map<char32_t, QString> likenesses{
        {U'’', u"'"_s},      {U'‘', u"'"_s},      {U'“', u"\""_s},     {U'”', u"\""_s},
        {U'«', u"\""_s},     {U'»', u"\""_s},     {U'…', u"..."_s},    {U'–', u"-"_s},
        {U'—', u"-"_s},      {U'œ', u"oe"_s},     {U'Œ', u"OE"_s},     {U'\u00A0', u" "_s},
        {U'\u202F', u" "_s}, {U'\u2009', u" "_s}, {U'\u2011', u"-"_s},
    };
    return likenesses;
}

bool belongsTo(QStringView alphabet, char32_t character)
{
    return character <= 0xFFFF && alphabet.contains(QChar(char16_t(character)));
}

/// Septets that the character takes in the short alphabet; none when it is not part of it.
int septets(char32_t character)
{
    if (belongsTo(basicAlphabet, character))
        return 1;
    return belongsTo(extendedAlphabet, character) ? 2 : 0;
}

int utf16Units(char32_t character) { return QChar::requiresSurrogates(character) ? 2 : 1; }

/// Parts that the characters fill, none of which is cut in two.
int partsFilled(std::span<const int> sizes, Capacity capacity)
{
    int total = 0;
    int parts = 1;
    int filled = 0;
    for (const int size : sizes) {
        total += size;
        if (filled + size > capacity.ofSeveral) {
            ++parts;
            filled = 0;
        }
        filled += size;
    }
    return total <= capacity.alone ? 1 : parts;
}

} // namespace

SmsLength smsLength(const QString &text)
{
    const QList<uint> characters = text.toUcs4();
    SmsLength length;
    std::vector<int> sizes;
    for (const char32_t character : characters) {
        sizes.push_back(septets(character));
        const QString shown = QString::fromUcs4(&character, 1);
        if (sizes.back() == 0 && !length.longCharacters.contains(shown))
            length.longCharacters << shown;
    }
    const bool isLong = !length.longCharacters.isEmpty();
    if (isLong)
        std::ranges::transform(characters, sizes.begin(), utf16Units);
    length.parts = partsFilled(sizes, isLong ? longAlphabet : shortAlphabet);
    return length;
}

QString withPlainCharacters(const QString &text)
{
    QString plain;
    for (const char32_t character : text.toUcs4()) {
        const auto found = plainLikenesses().find(character);
        plain +=
            found == plainLikenesses().end() ? QString::fromUcs4(&character, 1) : found->second;
    }
    return plain;
}

} // namespace quenoria
