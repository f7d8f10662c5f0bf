#include "ui/table/sort_keys.h"

#include "model/text_order.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace quenoria {

void SortKeys::setAll(std::size_t contacts, const ValueOf &valueOf)
{
    m_keys.reset(contacts);
    m_keys.complete(
        [&valueOf](std::string &out, std::size_t contact) { appendKey(out, valueOf(contact)); });
    m_heads.resize(contacts);
    cutHeads();
}

void SortKeys::set(std::size_t contact, const ValueOf &valueOf)
{
    m_keys.set(contact,
               [&valueOf](std::string &out, std::size_t of) { appendKey(out, valueOf(of)); });
    const std::string_view key = m_keys.at(contact);
    if (key.starts_with(m_common))
        m_heads[contact] = headOf(key);
    else
        cutHeads();
}

int SortKeys::compare(std::size_t a, std::size_t b) const
{
    if (m_heads[a] != m_heads[b])
        return m_heads[a] < m_heads[b] ? -1 : 1;
    return m_keys.at(a).compare(m_keys.at(b));
}

void SortKeys::appendKey(std::string &out, const SortValue &value)
{
    if (const auto *text = std::get_if<QString>(&value)) {
        dictionaryOrder().appendKey(out, *text);
    } else if (const auto *flag = std::get_if<bool>(&value)) {
        out += char(*flag ? 2 : 1);
    } else {
        constexpr auto sign = quint64(1) << 63U; // the earliest instant is the smallest number
        const auto count = quint64(std::get<Instant>(value).time_since_epoch().count());
        const quint64 bytes = qToBigEndian(count ^ sign);
        out.append(reinterpret_cast<const char *>(&bytes), sizeof bytes);
    }
}

/// A key that ends before is the smaller one, as among texts.
quint64 SortKeys::headOf(std::string_view key) const
{
    key.remove_prefix(m_common.size());
    quint64 head = 0;
    std::memcpy(&head, key.data(), std::min(key.size(), sizeof head));
    return qFromBigEndian(head);
}

void SortKeys::cutHeads()
{
    m_common = m_heads.empty() ? std::string() : std::string(m_keys.at(0));
    for (std::size_t contact = 1; contact < m_heads.size(); ++contact) {
        const std::string_view key = m_keys.at(contact);
        const auto differs = std::ranges::mismatch(m_common, key).in1;
        m_common.erase(differs, m_common.end());
    }
    for (std::size_t contact = 0; contact < m_heads.size(); ++contact)
        m_heads[contact] = headOf(m_keys.at(contact));
}

} // namespace quenoria
