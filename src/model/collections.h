#pragma once

#include "model/json_decode.h"
#include "model/json_text.h"
#include "model/pieces.h"

#include <QHash>

#include <initializer_list>
#include <map>
#include <set>

namespace quenoria {

/// A set of contact ids or recipient keys, written sorted so that equal sets are equal bytes.
using IdSet = std::set<QString>;

inline void appendJson(std::string &out, const IdSet &ids, int level)
{
    appendJsonArray(out, ids, level);
}

/// What a collection keeps beside each of its records: the record's part of the file, from the
/// comma before it on, made once and kept until the record changes. Writing a file then costs
/// little more than its bytes.
template <typename Value>
class Encoded {
public:
    Encoded() = default;
    explicit Encoded(Value value) : m_value(std::move(value)) {}

    const Value &value() const { return m_value; }

    template <typename Change>
    void edit(Change &&change)
    {
        change(m_value);
        m_text.clear();
    }

    /// The name is the same each time; null in an array.
    void appendTo(std::string &out, const QString *name = nullptr) const
    {
        if (!m_text.empty()) {
            out += m_text;
            return;
        }
        const std::size_t start = out.size();
        out += ',';
        appendJsonLine(out, 1);
        if (name) {
            appendJsonString(out, *name);
            out += " : ";
        }
        appendJson(out, m_value, 1);
        m_text = out.substr(start); // a copy of just that size
    }

private:
    Value m_value{};
    mutable std::string m_text;
};

/// Gives a collection's file in pieces that stay in the processor's cache, however large the file.
class PiecewiseJson {
public:
    PiecewiseJson(const char *brackets, const TakePiece &take) : m_brackets(brackets), m_take(take)
    {
        m_piece.reserve(pieceSize + pieceSize / 4);
    }

    template <typename Value>
    void add(const Encoded<Value> &record, const QString *name = nullptr)
    {
        record.appendTo(m_piece, name);
        if (m_isEmpty)
            m_piece.front() = m_brackets[0]; // in place of the first record's comma
        m_isEmpty = false;
        if (m_piece.size() >= pieceSize)
            handOver();
    }

    void close()
    {
        m_piece += m_isEmpty ? m_brackets[0] : '\n';
        m_piece += m_brackets[1];
        m_piece += '\n';
        handOver();
    }

private:
    static constexpr std::size_t pieceSize = std::size_t{256} * 1024;

    void handOver()
    {
        m_take(m_piece);
        m_piece.clear();
    }

    const char *m_brackets;
    const TakePiece &m_take;
    std::string m_piece;
    bool m_isEmpty = true;
};

/// The whole file of a set.
inline void writeJson(const IdSet &ids, const TakePiece &take)
{
    std::string out;
    appendJson(out, ids, 0);
    take(out + '\n');
}

/// The whole file of a sequence or a dictionary.
template <typename Shape>
void writeJson(const Shape &collection, const TakePiece &take)
{
    collection.writeJson(take);
}

/// Decodes a collection's file, or gives nothing.
template <typename Shape>
std::optional<Shape> decodeCollection(const QByteArray &bytes)
{
    if constexpr (requires { Shape::fromJson(bytes); })
        return Shape::fromJson(bytes);
    else
        return decodeJson<Shape>(bytes);
}

/// Records in the user's order; an array in its file. A record is replaced, never edited in place.
template <typename Value>
class Sequence {
public:
    Sequence() = default;
    Sequence(std::initializer_list<Value> values) { append(std::vector<Value>(values)); }
    explicit Sequence(std::vector<Value> values) { append(std::move(values)); }

    std::size_t size() const { return m_slots.size(); }
    bool empty() const { return m_slots.empty(); }
    const Value &operator[](std::size_t position) const { return m_slots[position].value(); }
    const Value &front() const { return m_slots.front().value(); }
    const Value &back() const { return m_slots.back().value(); }

    /// First record that satisfies the test, or null.
    template <typename Test>
    const Value *find(Test &&test) const
    {
        for (const Encoded<Value> &slot : m_slots) {
            if (test(slot.value()))
                return &slot.value();
        }
        return nullptr;
    }

    void append(Value value) { m_slots.emplace_back(std::move(value)); }
    void prepend(Value value) { m_slots.emplace(m_slots.begin(), std::move(value)); }
    void append(std::vector<Value> values)
    {
        m_slots.reserve(m_slots.size() + values.size());
        for (Value &value : values)
            m_slots.emplace_back(std::move(value));
    }

    /// Replaces the first record that satisfies the test; false when there is none.
    template <typename Test>
    bool replaceFirst(Test &&test, Value value)
    {
        for (Encoded<Value> &slot : m_slots) {
            if (!test(slot.value()))
                continue;
            slot = Encoded<Value>(std::move(value));
            return true;
        }
        return false;
    }

    template <typename Test>
    void removeIf(Test &&test)
    {
        std::erase_if(m_slots, [&test](const Encoded<Value> &slot) { return test(slot.value()); });
    }

    std::vector<Value> values() const
    {
        std::vector<Value> copy;
        copy.reserve(size());
        for (const Encoded<Value> &slot : m_slots)
            copy.push_back(slot.value());
        return copy;
    }

    template <typename Visit>
    void forEach(Visit &&visit) const
    {
        for (const Encoded<Value> &slot : m_slots)
            visit(slot.value());
    }

    /// The whole file.
    void writeJson(const TakePiece &take) const
    {
        PiecewiseJson file("[]", take);
        for (const Encoded<Value> &slot : m_slots)
            file.add(slot);
        file.close();
    }

    static std::optional<Sequence> fromJson(const QByteArray &bytes)
    {
        auto values = decodeJson<std::vector<Value>>(bytes);
        return values ? std::optional(Sequence(std::move(*values))) : std::nullopt;
    }

private:
    std::vector<Encoded<Value>> m_slots;
};

/// Records by contact id (or month); an object in its file. Kept in the order of the names, in
/// which it is written, and hashed, since every row of the table looks its records up.
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
    bool contains(const QString &key) const { return m_index.contains(key); }

    /// The record, or null; valid until the dictionary changes.
    const Value *find(const QString &key) const
    {
        const auto found = m_index.constFind(key);
        return found == m_index.cend() ? nullptr : &(*found)->second.value();
    }

    void set(const QString &key, Value value)
    {
        const auto found = m_index.constFind(key);
        if (found != m_index.cend())
            (*found)->second = Encoded<Value>(std::move(value));
        else
            insert(key, std::move(value));
    }

    /// Changes a record where it lies, or one made for the purpose.
    template <typename Change>
    void edit(const QString &key, Change &&change)
    {
        auto found = m_index.constFind(key);
        if (found == m_index.cend()) {
            insert(key, Value{});
            found = m_index.constFind(key);
        }
        (*found)->second.edit(change);
    }

    bool remove(const QString &key)
    {
        const auto found = m_index.constFind(key);
        if (found == m_index.cend())
            return false;
        m_slots.erase(*found);
        m_index.erase(found);
        return true;
    }

    /// Removes every entry whose record satisfies the test.
    template <typename Test>
    void removeIf(Test &&test)
    {
        for (auto slot = m_slots.begin(); slot != m_slots.end();) {
            if (!test(slot->second.value())) {
                ++slot;
                continue;
            }
            m_index.remove(slot->first);
            slot = m_slots.erase(slot);
        }
    }

    template <typename Visit>
    void forEach(Visit &&visit) const
    {
        for (const auto &[key, slot] : m_slots)
            visit(key, slot.value());
    }

    /// The whole file.
    void writeJson(const TakePiece &take) const
    {
        PiecewiseJson file("{}", take);
        for (const auto &[key, slot] : m_slots)
            file.add(slot, &key);
        file.close();
    }

    static std::optional<Dictionary> fromJson(const QByteArray &bytes)
    {
        auto members = decodeJson<JsonMembers<Value>>(bytes);
        if (!members)
            return std::nullopt;
        Dictionary dictionary;
        dictionary.m_index.reserve(qsizetype(members->size()));
        for (auto &[key, value] : *members)
            dictionary.set(key, std::move(value));
        return dictionary;
    }

private:
    using Slots = std::map<QString, Encoded<Value>>;

    void insert(const QString &key, Value value)
    {
        // At the end, where a key belongs that comes from a file: they stand sorted there.
        const auto slot =
            m_slots.emplace_hint(m_slots.end(), key, Encoded<Value>(std::move(value)));
        m_index.insert(key, slot);
    }

    Slots m_slots;
    QHash<QString, typename Slots::iterator> m_index;
};

} // namespace quenoria
