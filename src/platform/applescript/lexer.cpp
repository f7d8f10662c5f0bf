#include "platform/applescript/lexer.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

namespace {

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

bool isLetter(QChar character)
{
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

bool belongsToWord(QChar character) { return isLetter(character) || isDigit(character); }

bool belongsToNumber(QChar character) { return isDigit(character) || character == u'.'; }

bool isBlank(QChar character) { return character == u' ' || character == u'\t'; }

bool isLineEnd(QChar character) { return character == u'\n' || character == u'\r'; }

bool isLineEndOrBlank(QChar character) { return isLineEnd(character) || isBlank(character); }

std::optional<QChar> escaped(QChar letter)
{
    switch (letter.unicode()) {
    case u'\\':
    case u'"':
        return letter;
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    default:
        return std::nullopt;
    }
}

class Lexer {
public:
    explicit Lexer(QStringView source) : m_rest(source) {}

    std::optional<Token> next()
    {
        take(isBlank);
        if (m_rest.isEmpty())
            return Token{Token::Kind::End, {}};
        const QChar first = m_rest.front();
        if (isLineEnd(first)) {
            take(isLineEndOrBlank); // empty lines too
            return Token{Token::Kind::LineEnd, {}};
        }
        if (isLetter(first))
            return Token{Token::Kind::Word, take(belongsToWord)};
        if (isDigit(first))
            return number();
        m_rest = m_rest.mid(1);
        if (first == u'"')
            return text();
        if (QStringView(u"{}:,&").contains(first))
            return Token{Token::Kind::Symbol, first};
        return std::nullopt;
    }

private:
    QString take(bool (*belongs)(QChar))
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), belongs);
        const auto length = end - m_rest.begin();
        QString taken = m_rest.first(length).toString();
        m_rest = m_rest.mid(length);
        return taken;
    }

    std::optional<Token> number()
    {
        bool isNumber = false;
        const QString digits = take(belongsToNumber);
        digits.toDouble(&isNumber);
        return isNumber ? std::optional(Token{Token::Kind::Number, digits}) : std::nullopt;
    }

    std::optional<Token> text()
    {
        Token token{Token::Kind::Text, {}};
        for (qsizetype at = 0; at < m_rest.size(); ++at) {
            if (m_rest[at] == u'"') {
                m_rest = m_rest.mid(at + 1);
                return token;
            }
            if (m_rest[at] != u'\\') {
                token.text += m_rest[at];
                continue;
            }
            const auto character =
                ++at < m_rest.size() ? escaped(m_rest[at]) : std::optional<QChar>();
            if (!character)
                return std::nullopt;
            token.text += *character;
        }
        return std::nullopt;
    }

    QStringView m_rest;
};

} // namespace

std::optional<std::vector<Token>> tokenize(QStringView source)
{
    std::vector<Token> tokens;
    Lexer lexer(source);
    do {
        const std::optional<Token> token = lexer.next();
        if (!token)
            return std::nullopt;
        tokens.push_back(*token);
    } while (tokens.back().kind != Token::Kind::End);
    return tokens;
}

} // namespace quenoria::applescript
