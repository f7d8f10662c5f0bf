#pragma once

#include "platform/applescript/lexer.h"

#include <QScopeGuard>

#include <initializer_list>
#include <vector>

namespace quenoria::applescript {

/// Ends the parsing; never leaves parse().
struct OutsideGrammar {};

/// The tokens of a script, read one after the other. What is asked for and does not come is outside
/// the grammar.
class TokenReader {
public:
    explicit TokenReader(std::vector<Token> tokens) : m_tokens(std::move(tokens)) {}

    [[nodiscard]] bool sees(Token::Kind kind) const { return m_tokens[m_position].kind == kind; }
    [[nodiscard]] bool sees(Token::Kind kind, QStringView text) const
    {
        return sees(kind) && m_tokens[m_position].text == text;
    }
    [[nodiscard]] bool sees(QStringView word) const { return sees(Token::Kind::Word, word); }

    bool accept(QStringView word) { return accept(Token::Kind::Word, word); }
    bool acceptSymbol(QStringView symbol) { return accept(Token::Kind::Symbol, symbol); }

    QString expect(Token::Kind kind); ///< its text
    void expect(std::initializer_list<QStringView> words);
    void expectSymbol(QStringView symbol);
    void lineEnd() { expect(Token::Kind::LineEnd); }

    /// A word that a script may give a meaning to.
    QString name();

    /// A term of several words, such as "outgoing message".
    QString words();

    /// Counts what is nested, until the guard goes.
    [[nodiscard]] auto oneLevelDown()
    {
        if (++m_depth > deepestNesting)
            throw OutsideGrammar();
        return qScopeGuard([this] { --m_depth; });
    }

private:
    /// Deeper nesting is refused, so that no text can exhaust the stack.
    static constexpr int deepestNesting = 64;

    bool accept(Token::Kind kind, QStringView text);

    std::vector<Token> m_tokens;
    std::size_t m_position = 0;
    int m_depth = 0;
};

} // namespace quenoria::applescript
