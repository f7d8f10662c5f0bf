#pragma once

#include "model/encoded.h"
#include "model/json_decode.h"

#include <initializer_list>

namespace quenoria {

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
    void writeJson(const TakePiece &take, Texts texts) const
    {
        PiecewiseJson file("[]", take, texts);
        for (const Encoded<Value> &slot : m_slots)
            file.add(slot);
        file.close();
    }

    static std::optional<Sequence> fromJson(const QByteArray &bytes)
    {
        auto read = decodeJson<std::vector<Encoded<Value>>>(bytes);
        if (!read)
            return std::nullopt;
        Sequence sequence;
        sequence.m_slots = std::move(*read);
        return sequence;
    }

private:
    std::vector<Encoded<Value>> m_slots;
};

} // namespace quenoria
