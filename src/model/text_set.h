#pragma once

#include "model/json_text.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <vector>

namespace quenoria {

/// A set of texts in one sorted array, written like an IdSet. It takes less than half of a tree's
/// memory, which counts where a file holds hundreds of thousands; adding one in the middle moves
/// what stands behind it.
class TextSet {
public:
    TextSet() = default;
    TextSet(std::initializer_list<QString> texts) : TextSet(std::vector<QString>(texts)) {}
    explicit TextSet(std::vector<QString> texts) : m_texts(std::move(texts))
    {
        if (std::ranges::adjacent_find(m_texts, std::greater_equal()) != m_texts.end()) {
            std::ranges::sort(m_texts); // in a file they are
            m_texts.erase(std::unique(m_texts.begin(), m_texts.end()), m_texts.end());
        }
        m_texts.shrink_to_fit();
    }

    void insert(const QString &text)
    {
        const auto place = std::ranges::lower_bound(m_texts, text);
        if (place == m_texts.end() || *place != text)
            m_texts.insert(place, text);
    }

    bool contains(const QString &text) const { return std::ranges::binary_search(m_texts, text); }

    std::size_t size() const { return m_texts.size(); }
    bool empty() const { return m_texts.empty(); }
    auto begin() const { return m_texts.begin(); }
    auto end() const { return m_texts.end(); }
    bool operator==(const TextSet &) const = default;

private:
    std::vector<QString> m_texts;
};

inline void appendJson(std::string &out, const TextSet &texts, int level)
{
    appendJsonArray(out, texts, level);
}

} // namespace quenoria
