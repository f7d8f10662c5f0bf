#pragma once

#include <QtGlobal>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quenoria {

/// A text of each contact, in one buffer: a hundred thousand texts of their own would cost more in
/// bookkeeping than in letters.
class TextBuffer {
public:
    /// Appends the text of a contact; on any thread.
    using Append = std::function<void(std::string &out, std::size_t contact)>;

    /// Forgets all texts, of so many contacts.
    void reset(std::size_t contacts);

    bool has(std::size_t contact) const { return m_parts[contact].size != unknown; }
    void set(std::size_t contact, const Append &append);
    void complete(const Append &append); ///< those that are not there
    void forget(std::size_t contact) { m_parts[contact].size = unknown; }

    /// The text must be there; valid until another is set.
    std::string_view at(std::size_t contact) const
    {
        const auto &[start, size] = m_parts[contact];
        return std::string_view(m_buffer).substr(start, size);
    }

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
