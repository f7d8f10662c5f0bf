#pragma once

#include "model/id_set.h"
#include "model/json_text.h"
#include "model/pieces.h"

#include <memory>

namespace quenoria {

/// Whether the texts made for a file are kept for the next one. A start only compares, and must
/// not double the memory that the records take.
enum class Texts { kept, dropped };

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
        m_text.reset();
    }

    /// The name is the same each time; null in an array.
    void appendTo(std::string &out, Texts texts, const QString *name = nullptr) const
    {
        if (m_text) {
            out += *m_text;
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
        if (texts == Texts::kept)
            m_text = std::make_unique<std::string>(out, start); // of just that size
    }

private:
    Value m_value{};
    mutable std::unique_ptr<std::string> m_text; ///< most records never change: null costs little
};

/// Gives a collection's file in pieces that stay in the processor's cache, however large the file.
class PiecewiseJson {
public:
    PiecewiseJson(const char *brackets, const TakePiece &take, Texts texts)
        : m_brackets(brackets), m_take(take), m_texts(texts)
    {
        m_piece.reserve(pieceSize + pieceSize / 4);
    }

    template <typename Value>
    void add(const Encoded<Value> &record, const QString *name = nullptr)
    {
        record.appendTo(m_piece, m_texts, name);
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
    Texts m_texts;
    std::string m_piece;
    bool m_isEmpty = true;
};

} // namespace quenoria
