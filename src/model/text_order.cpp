#include "model/text_order.h"

#include <unicode/ucol.h>

#include <new>

namespace quenoria {

namespace {

/// The library fails for want of memory alone, once it has opened its rules.
void check(UErrorCode error)
{
    if (U_FAILURE(error))
        throw std::bad_alloc();
}

const UChar *units(QStringView text) { return text.isEmpty() ? u"" : text.utf16(); }

} // namespace

TextOrder::TextOrder(const QLocale &locale, Digits digits)
{
    UErrorCode error = U_ZERO_ERROR;
    m_collator.reset(ucol_open(locale.bcp47Name().toLatin1().constData(), &error));
    const auto set = [&](UColAttribute attribute, UColAttributeValue value) {
        ucol_setAttribute(m_collator.get(), attribute, value, &error);
    };
    set(UCOL_NORMALIZATION_MODE, UCOL_ON);
    set(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE);
    set(UCOL_STRENGTH, UCOL_SECONDARY);
    set(UCOL_NUMERIC_COLLATION, digits == Digits::byValue ? UCOL_ON : UCOL_OFF);
    check(error);
}

void TextOrder::Close::operator()(UCollator *collator) const { ucol_close(collator); }

int TextOrder::compare(QStringView a, QStringView b) const
{
    return ucol_strcoll(m_collator.get(), units(a), int32_t(a.size()), units(b), int32_t(b.size()));
}

void TextOrder::appendKey(std::string &out, QStringView text) const
{
    const std::size_t start = out.size();
    std::size_t room = 2 * std::size_t(text.size()) + 16; // nearly always enough
    std::size_t size = 0;                                 // with a 0 at its end
    for (;; room = size) {
        out.resize(start + room);
        size = std::size_t(ucol_getSortKey(m_collator.get(), units(text), int32_t(text.size()),
                                           reinterpret_cast<uint8_t *>(out.data() + start),
                                           int32_t(room)));
        if (size == 0)
            check(U_MEMORY_ALLOCATION_ERROR);
        if (size <= room)
            break;
    }
    out.resize(start + size - 1);
}

QLocale displayLocale()
{
    const QLocale user;
    return user.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : user;
}

const TextOrder &finderOrder()
{
    static const TextOrder order(displayLocale(), TextOrder::Digits::byValue);
    return order;
}

const TextOrder &dictionaryOrder()
{
    static const TextOrder order(displayLocale(), TextOrder::Digits::asCharacters);
    return order;
}

} // namespace quenoria
