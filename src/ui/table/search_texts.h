#pragma once

#include <QString>

#include <string>
#include <vector>

namespace quenoria {

/// What a search compares: lower case in the user's language, composed, as UTF-8. The separator of
/// texts becomes a byte that no text holds.
///
///   "ÉPICERIE"   -> "épicerie"
///   "e" U+0301   -> "é"
[[nodiscard]] std::string foldedForSearch(const QString &text);

/// What a search looks in, folded, of every contact. One buffer: a hundred thousand texts of their
/// own would cost more in bookkeeping than in letters.
class SearchTexts {
public:
    /// Forgets all texts, and makes room for those of so many contacts.
    void reset(std::size_t contacts);

    bool has(std::size_t contact) const { return m_parts[contact].size != unknown; }
    void set(std::size_t contact, const QString &text);
    void forget(std::size_t contact) { m_parts[contact].size = unknown; }

    /// The text must be there.
    bool contains(std::size_t contact, std::string_view folded) const;

private:
    static constexpr quint32 unknown = quint32(-1);

    struct Part {
        std::size_t start = 0;
        quint32 size = unknown;
    };
    std::vector<Part> m_parts;
    std::string m_buffer; ///< a text that is set anew leaves its old one behind until reset()
};

} // namespace quenoria
