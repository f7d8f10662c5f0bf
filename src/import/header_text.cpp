#include "import/header_text.h"

#include <QString>

#include <algorithm>
#include <array>

namespace quenoria {

namespace {

struct HeaderTitle {
    std::string_view text;
    ColumnRole role;
};

constexpr std::array titles{
    HeaderTitle{"adresse e mail", ColumnRole::email},
    HeaderTitle{"adresse email", ColumnRole::email},
    HeaderTitle{"code postal", ColumnRole::postcode},
    HeaderTitle{"commune", ColumnRole::town},
    HeaderTitle{"contact", ColumnRole::name},
    HeaderTitle{"courriel", ColumnRole::email},
    HeaderTitle{"cp", ColumnRole::postcode},
    HeaderTitle{"departement", ColumnRole::department},
    HeaderTitle{"department", ColumnRole::department},
    HeaderTitle{"e mail", ColumnRole::email},
    HeaderTitle{"email", ColumnRole::email},
    HeaderTitle{"entreprise", ColumnRole::name},
    HeaderTitle{"mail", ColumnRole::email},
    HeaderTitle{"metier", ColumnRole::profession},
    HeaderTitle{"mobile", ColumnRole::mobile},
    HeaderTitle{"nom", ColumnRole::name},
    HeaderTitle{"nom de l entreprise", ColumnRole::name},
    HeaderTitle{"nom de l entreprise ou du contact", ColumnRole::name},
    HeaderTitle{"nom du contact", ColumnRole::name},
    HeaderTitle{"nom du olvak", ColumnRole::name},
    HeaderTitle{"nom entreprise", ColumnRole::name},
    HeaderTitle{"nom olvak", ColumnRole::name},
    HeaderTitle{"olvak", ColumnRole::name},
    HeaderTitle{"portable", ColumnRole::mobile},
    HeaderTitle{"profession", ColumnRole::profession},
    HeaderTitle{"raison sociale", ColumnRole::name},
    HeaderTitle{"tel mobile", ColumnRole::mobile},
    HeaderTitle{"telephone mobile", ColumnRole::mobile},
    HeaderTitle{"ville", ColumnRole::town},
};
static_assert(std::ranges::is_sorted(titles, {}, &HeaderTitle::text));

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr char foldAscii(char c)
{
    if (c >= 'A' && c <= 'Z')
        return char(c - 'A' + 'a');
    return (c >= 'a' && c <= 'z') || isDigit(c) ? c : ' ';
}

constexpr bool startsATitle(char folded)
{
    return std::ranges::any_of(
        titles, [folded](const HeaderTitle &title) { return title.text.front() == folded; });
}

/// Whether a title may begin with the byte: with the letter of one, or with what Unicode's tables
/// may fold to it.
bool mayStartTitle(char first)
{
    static constexpr auto starts = [] {
        std::array<bool, 256> marked{};
        for (int byte = 0; byte < 256; ++byte) {
            const char folded = foldAscii(char(byte));
            marked[std::size_t(byte)] = folded == ' ' || startsATitle(folded);
        }
        return marked;
    }();
    return starts[static_cast<unsigned char>(first)];
}

/// Takes one character off the text and gives what it counts for: a letter, a digit, or a space
/// for the rest. Nothing when only Unicode's tables can tell.
std::optional<char> foldFirst(std::string_view &text)
{
    constexpr std::string_view baseLetters = // of U+00C0 to U+00FF; "?" stands for "ss"
        "aaaaaa ceeeeiiii nooooo  uuuuy ?aaaaaa ceeeeiiii nooooo  uuuuy y";
    const char first = text.front();
    std::size_t size = 1;
    char folded = ' ';
    if (static_cast<signed char>(first) >= 0) {
        folded = foldAscii(first);
    } else if (first == '\xC3' && text.size() > 1) { // accented Latin letters
        size = 2;
        folded = baseLetters[std::size_t(text[1]) & 0x3FU];
    } else if (first == '\xC2') { // signs and the no-break space
        size = 2;
    } else if (text.starts_with("\xE2\x80")) { // typographic apostrophes, dashes and spaces
        size = 3;
    } else {
        return std::nullopt;
    }
    if (folded == '?' || size > text.size())
        return std::nullopt;
    text.remove_prefix(size);
    return folded;
}

/// Any text, folded by Unicode's tables so that foldFirst() knows every character of it.
std::string foldByTables(std::string_view text)
{
    QString folded = QString::fromUtf8(text.data(), qsizetype(text.size()))
                         .normalized(QString::NormalizationForm_D)
                         .toCaseFolded();
    folded.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    std::string ascii;
    for (const QChar c : folded)
        ascii += c.unicode() < 0x80 ? char(c.unicode()) : ' ';
    return ascii;
}

} // namespace

std::string normalizedHeader(std::string_view text)
{
    std::string normalized;
    normalized.reserve(text.size());
    for (std::string_view rest = text; !rest.empty();) {
        const std::optional<char> c = foldFirst(rest);
        if (!c)
            return normalizedHeader(foldByTables(text));
        if (*c != ' ' || (!normalized.empty() && normalized.back() != ' '))
            normalized += *c;
    }
    if (normalized.ends_with(' '))
        normalized.pop_back();
    return normalized;
}

std::optional<ColumnRole> columnRole(std::string_view cell)
{
    constexpr std::size_t longestCell = 1024; // more would be nearly all signs
    if (cell.empty() || cell.size() > longestCell || !mayStartTitle(cell.front()) ||
        std::ranges::any_of(cell, isDigit))
        return std::nullopt; // as for nearly every cell
    const std::string normalized = normalizedHeader(cell);
    const auto *const found =
        std::ranges::lower_bound(titles, std::string_view(normalized), {}, &HeaderTitle::text);
    if (found == titles.end() || found->text != normalized)
        return std::nullopt;
    return found->role;
}

} // namespace quenoria
