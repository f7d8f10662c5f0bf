#pragma once

#include <QHash>
#include <QString>

#include <vector>

namespace quenoria {

/// Finds keys that lie elsewhere, by their places: it costs some eight bytes a key, where a hash
/// of the keys would hold each of them a second time.
class KeyIndex {
public:
    static constexpr quint32 none = quint32(-1);

    /// The place of the key, or none; keyAt(place) gives the key that lies there.
    template <typename KeyAt>
    quint32 find(const QString &key, const KeyAt &keyAt) const
    {
        if (m_cells.empty())
            return none;
        for (std::size_t cell = start(key); m_cells[cell] != none; cell = after(cell)) {
            if (m_cells[cell] != removed && keyAt(m_cells[cell]) == key)
                return m_cells[cell];
        }
        return none;
    }

    /// The key must not be there yet.
    template <typename KeyAt>
    void insert(quint32 place, const KeyAt &keyAt)
    {
        if (2 * (m_used + 1) > m_cells.size())
            rebuild(2 * (m_count + 1), keyAt);
        put(keyAt(place), place);
        ++m_count;
    }

    /// Inserts the key unless it is there already; the place where it is then, else none.
    template <typename KeyAt>
    quint32 insertNew(quint32 place, const KeyAt &keyAt)
    {
        if (2 * (m_used + 1) > m_cells.size())
            rebuild(2 * (m_count + 1), keyAt);
        const QString &key = keyAt(place);
        std::size_t cell = start(key);
        for (; m_cells[cell] != none; cell = after(cell)) {
            if (m_cells[cell] != removed && keyAt(m_cells[cell]) == key)
                return m_cells[cell];
        }
        m_cells[cell] = place;
        ++m_used;
        ++m_count;
        return none;
    }

    /// The key must be there.
    void remove(const QString &key, quint32 place)
    {
        std::size_t cell = start(key);
        while (m_cells[cell] != place)
            cell = after(cell);
        m_cells[cell] = removed;
        --m_count;
    }

    template <typename KeyAt>
    void reserve(std::size_t keys, const KeyAt &keyAt)
    {
        if (2 * keys > m_cells.size())
            rebuild(keys, keyAt);
    }

private:
    static constexpr quint32 removed = quint32(-2);
    static constexpr std::size_t fewest = 16;

    std::size_t start(const QString &key) const { return qHash(key) & (m_cells.size() - 1); }
    std::size_t after(std::size_t cell) const { return (cell + 1) & (m_cells.size() - 1); }

    void put(const QString &key, quint32 place)
    {
        std::size_t cell = start(key);
        while (m_cells[cell] != none)
            cell = after(cell);
        m_cells[cell] = place;
        ++m_used;
    }

    template <typename KeyAt>
    void rebuild(std::size_t keys, const KeyAt &keyAt)
    {
        std::size_t size = fewest;
        while (size < 2 * keys)
            size *= 2;
        const std::vector<quint32> before = std::exchange(m_cells, std::vector(size, none));
        m_used = 0;
        for (const quint32 place : before) {
            if (place < removed)
                put(keyAt(place), place);
        }
    }

    std::vector<quint32> m_cells; ///< a power of two of them, at most half of them used
    std::size_t m_used = 0;       ///< with the removed ones
    std::size_t m_count = 0;
};

} // namespace quenoria
