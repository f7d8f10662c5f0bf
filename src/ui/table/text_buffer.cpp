#include "ui/table/text_buffer.h"

#include "ui/table/shares.h"

#include <algorithm>
#include <utility>

namespace quenoria {

void TextBuffer::reset(std::size_t contacts)
{
    m_parts.assign(contacts, {});
    m_buffer.clear();
}

void TextBuffer::set(std::size_t contact, const Append &append)
{
    const std::size_t start = m_buffer.size();
    append(m_buffer, contact);
    m_parts[contact] = {start, quint32(m_buffer.size() - start)};
}

void TextBuffer::complete(const Append &append)
{
    const auto missing = [](const Part &part) { return part.size == unknown; };
    const auto first = std::size_t(std::ranges::find_if(m_parts, missing) - m_parts.begin());
    if (first == m_parts.size())
        return;
    struct Share {
        std::string text; ///< of its contacts, one after the other
        std::vector<std::pair<std::size_t, quint32>> sizes;
    };
    std::vector<Share> shares(sharesOf(m_parts.size()));
    inShares(m_parts.size(), [&](std::size_t index, std::size_t begin, std::size_t end) {
        Share &share = shares[index];
        for (std::size_t contact = std::max(begin, first); contact < end; ++contact) {
            if (has(contact))
                continue;
            const std::size_t start = share.text.size();
            append(share.text, contact);
            share.sizes.emplace_back(contact, quint32(share.text.size() - start));
        }
    });
    std::size_t place = m_buffer.size();
    for (Share &share : shares) {
        m_buffer += std::exchange(share.text, {});
        for (const auto &[contact, size] : share.sizes) {
            m_parts[contact] = {place, size};
            place += size;
        }
    }
}

} // namespace quenoria
