#pragma once

#include "model/encoded.h"
#include "model/json_decode.h"
#include "model/key_index.h"

#include <algorithm>

namespace quenoria {

/// Records by contact id (or month); an object in its file. Written in the order of the names,
/// and hashed, since every row of the table looks its records up. The records lie in one array.
template <typename Value>
class Dictionary {
public:
    Dictionary() = default;
    Dictionary(const Dictionary &) = delete;
    Dictionary &operator=(const Dictionary &) = delete;
    Dictionary(Dictionary &&) noexcept = default;
    Dictionary &operator=(Dictionary &&) noexcept = default;

    std::size_t size() const { return m_slots.size(); }
    bool empty() const { return m_slots.empty(); }
    bool contains(const QString &key) const { return placeOf(key) != KeyIndex::none; }

    /// The record, or null; valid until the dictionary changes.
    const Value *find(const QString &key) const
    {
        const quint32 place = placeOf(key);
        return place == KeyIndex::none ? nullptr : &m_slots[place].second.value();
    }

    void set(const QString &key, Value value)
    {
        if (const quint32 place = placeOf(key); place != KeyIndex::none)
            m_slots[place].second = Encoded<Value>(std::move(value));
        else
            append(key, std::move(value));
    }

    /// Changes a record where it lies, or one made for the purpose.
    template <typename Change>
    void edit(const QString &key, Change &&change)
    {
        if (!contains(key))
            append(key, Value{});
        m_slots[placeOf(key)].second.edit(change);
    }

    bool remove(const QString &key)
    {
        const quint32 place = placeOf(key);
        if (place == KeyIndex::none)
            return false;
        const auto last = quint32(m_slots.size() - 1);
        keepOrderWithout(place, last);
        m_index.remove(key, place);
        if (place != last) { // which takes the free place
            m_index.remove(m_slots[last].first, last);
            m_slots[place] = std::move(m_slots[last]);
        }
        m_slots.pop_back();
        if (place != last)
            m_index.insert(place, keyAt());
        return true;
    }

    /// Many at once: they are put in order anew once, at the next use.
    template <typename Keys>
    void removeEach(const Keys &keys)
    {
        m_order.clear();
        for (const QString &key : keys)
            remove(key);
    }

    /// In the order of the names.
    template <typename Visit>
    void forEach(Visit &&visit) const
    {
        for (const quint32 place : sorted())
            visit(m_slots[place].first, m_slots[place].second.value());
    }

    /// The whole file.
    void writeJson(const TakePiece &take, Texts texts) const
    {
        PiecewiseJson file("{}", take, texts);
        for (const quint32 place : sorted())
            file.add(m_slots[place].second, &m_slots[place].first);
        file.close();
    }

    static std::optional<Dictionary> fromJson(const QByteArray &bytes)
    {
        auto members = decodeJson<JsonMembers<Encoded<Value>>>(bytes);
        if (!members)
            return std::nullopt;
        Dictionary dictionary;
        dictionary.m_slots = std::move(*members);
        dictionary.indexAll();
        return dictionary;
    }

private:
    using Slot = typename JsonMembers<Encoded<Value>>::value_type;

    auto keyAt() const
    {
        return [this](quint32 place) -> const QString & { return m_slots[place].first; };
    }
    quint32 placeOf(const QString &key) const { return m_index.find(key, keyAt()); }

    /// Of those that share a key, the last counts, where the first stands.
    void indexAll()
    {
        m_index.reserve(m_slots.size(), keyAt());
        std::size_t kept = 0;
        for (std::size_t each = 0; each < m_slots.size(); ++each) {
            if (kept != each)
                m_slots[kept] = std::move(m_slots[each]);
            if (const quint32 known = m_index.insertNew(quint32(kept), keyAt());
                known == KeyIndex::none)
                ++kept;
            else
                m_slots[known].second = std::move(m_slots[kept].second);
        }
        m_slots.erase(m_slots.begin() + std::ptrdiff_t(kept), m_slots.end());
    }

    void append(const QString &key, Value value)
    {
        m_slots.emplace_back(key, Encoded<Value>(std::move(value)));
        m_index.insert(quint32(m_slots.size() - 1), keyAt());
    }

    void keepOrderWithout(quint32 place, quint32 last)
    {
        if (m_order.size() < m_slots.size()) {
            m_order.clear();
            return;
        }
        m_order.erase(std::ranges::find(m_order, place));
        std::ranges::replace(m_order, last, place);
    }

    /// The places in the order of their names. Those of a file come in that order already, and a
    /// few new ones are put among the rest without comparing it.
    const std::vector<quint32> &sorted() const
    {
        constexpr std::ptrdiff_t few = 32;
        const auto known = std::ptrdiff_t(m_order.size());
        for (auto place = quint32(known); place < m_slots.size(); ++place)
            m_order.push_back(place);
        const auto added = m_order.begin() + known;
        const auto precedes = [this](quint32 a, quint32 b) {
            return m_slots[a].first < m_slots[b].first;
        };
        if (!std::is_sorted(added, m_order.end(), precedes))
            std::sort(added, m_order.end(), precedes);
        if (m_order.end() - added <= few) {
            for (auto place = added; place != m_order.end(); ++place)
                std::rotate(std::upper_bound(m_order.begin(), place, *place, precedes), place,
                            place + 1);
        } else {
            std::inplace_merge(m_order.begin(), added, m_order.end(), precedes);
        }
        return m_order;
    }

    std::vector<Slot> m_slots;
    KeyIndex m_index;
    mutable std::vector<quint32> m_order; ///< the first slots by name, or all
};

} // namespace quenoria
