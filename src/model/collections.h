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

/// What a collection keeps beside each of its records: the record's text in the file, made once
/// and kept until the record changes. Writing a file then costs little more than its bytes.
template <typename Value>
class Encoded {
public:
    Encoded() = default;
    explicit Encoded(Value value) : m_value(std::move(value)) {}

    const Value &value() const { return m_value; }

    void appendTo(QByteArray &out) const
    {
        if (m_text.isEmpty())
            appendJson(m_text, m_value, 1);
        out += m_text;
    }

private:
    Value m_value{};
    mutable QByteArray m_text;
};

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
        QByteArray out("[");
        const char *separator = "";
        for (const Encoded<Value> &slot : m_slots) {
            out += separator;
            appendJsonLine(out, 1);
            slot.appendTo(out);
            separator = ",";
        }
        out += empty() ? "]\n" : "\n]\n";
        return out;
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
            m_index.insert(key, m_slots.emplace(key, Encoded<Value>(std::move(value))).first);
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
        QByteArray out("{");
        const char *separator = "";
        for (const auto &[key, slot] : m_slots) {
            out += separator;
            appendJsonLine(out, 1);
            appendJsonString(out, key);
            out += " : ";
            slot.appendTo(out);
            separator = ",";
        }
        out += empty() ? "}\n" : "\n}\n";
        return out;
    }

    static std::optional<Dictionary> fromJson(const QByteArray &bytes)
    {
        auto members = decodeJson<JsonMembers<Value>>(bytes);
        if (!members)
            return std::nullopt;
        Dictionary dictionary;
        for (auto &[key, value] : *members)
            dictionary.set(key, std::move(value));
        return dictionary;
    }

private:
    using Slots = std::map<QString, Encoded<Value>>;

    Slots m_slots;
    QHash<QString, typename Slots::iterator> m_index;
};

} // namespace quenoria
