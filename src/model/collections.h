#pragma once

#include "model/json_decode.h"
#include "model/json_text.h"

#include <QHash>

#include <initializer_list>
#include <map>
#include <set>

namespace quenoria {

/// A set of contact ids or recipient keys, written sorted so that equal sets are equal bytes.
using IdSet = std::set<QString>;

inline void appendJson(QByteArray &out, const IdSet &ids, int level)
{
    appendJson(out, std::vector<QString>(ids.begin(), ids.end()), level);
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

    /// The name is the same each time; null in an array.
    void appendTo(QByteArray &out, const QString *name = nullptr) const
    {
        if (!m_text.isEmpty()) {
            out += m_text;
            return;
        }
        const qsizetype start = out.size();
        out += ',';
        appendJsonLine(out, 1);
        if (name) {
            appendJsonString(out, *name);
            out += " : ";
        }
        appendJson(out, m_value, 1);
        m_text = out.sliced(start); // a copy of just that size
    }

private:
    Value m_value{};
    mutable QByteArray m_text;
};

/// The whole file, from the texts of its records: the first one's comma gives way to the bracket.
inline QByteArray closedJson(QByteArray records, const char *brackets)
{
    if (records.isEmpty())
        return QByteArray(brackets) + '\n';
    records.front() = brackets[0];
    records += '\n';
    records += brackets[1];
    records += '\n';
    return records;
}

/// The whole file of a set.
inline QByteArray encodeJson(const IdSet &ids)
{
    QByteArray out;
    appendJson(out, ids, 0);
    return out + '\n';
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
    QByteArray json() const
    {
        QByteArray out;
        for (const Encoded<Value> &slot : m_slots) {
            slot.appendTo(out);
            if (&slot == &m_slots.front()) // records are about equally long
                out.reserve(out.size() * qsizetype(m_slots.size() + m_slots.size() / 4));
        }
        return closedJson(std::move(out), "[]");
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
    QByteArray json() const
    {
        QByteArray out;
        out.reserve(m_fileSize + growth);
        for (const auto &[key, slot] : m_slots)
            slot.appendTo(out, &key);
        m_fileSize = out.size();
        return closedJson(std::move(out), "{}");
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

    static constexpr qsizetype growth = 4096; ///< more than one change adds

    void insert(const QString &key, Value value)
    {
        // At the end, where a key belongs that comes from a file: they stand sorted there.
        const auto slot =
            m_slots.emplace_hint(m_slots.end(), key, Encoded<Value>(std::move(value)));
        m_index.insert(key, slot);
    }

    Slots m_slots;
    mutable qsizetype m_fileSize = 0; ///< when last written: a text that grows is copied often
    QHash<QString, typename Slots::iterator> m_index;
};

} // namespace quenoria
