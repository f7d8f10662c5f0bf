#pragma once

#include <QLocale>
#include <QString>

#include <memory>
#include <string>

struct UCollator;

namespace quenoria {

/// The locale for comparing and showing texts: the user's when it is a real one, else French,
/// since the C locale knows neither accents nor numbers inside names.
[[nodiscard]] QLocale displayLocale();

/// An order of texts without regard to case, as a locale has it. Any number of threads may use it.
class TextOrder {
public:
    enum class Digits { asCharacters, byValue };

    TextOrder(const QLocale &locale, Digits digits);

    int compare(QStringView a, QStringView b) const; ///< below, above or 0
    bool operator()(QStringView a, QStringView b) const { return compare(a, b) < 0; }

    /// Appends bytes that compare as the text does; none of them is 0.
    void appendKey(std::string &out, QStringView text) const;

private:
    struct Close {
        void operator()(UCollator *collator) const;
    };
    std::unique_ptr<UCollator, Close> m_collator;
};

/// The order of a file browser: digits compared by their value, so that "CLIENT 2" comes before
/// "CLIENT 10".
[[nodiscard]] const TextOrder &finderOrder();

/// Dictionary order; digits are ordinary characters.
[[nodiscard]] const TextOrder &dictionaryOrder();

} // namespace quenoria
