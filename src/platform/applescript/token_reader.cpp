#include "platform/applescript/token_reader.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

namespace {

const QSet<QString> reservedWords{u"and"_s,    u"as"_s, u"at"_s,  u"else"_s, u"end"_s,
                                  u"error"_s,  u"if"_s, u"is"_s,  u"new"_s,  u"not"_s,
                                  u"number"_s, u"of"_s, u"on"_s,  u"set"_s,  u"tell"_s,
                                  u"then"_s,   u"to"_s, u"try"_s, u"with"_s};

} // namespace

bool TokenReader::accept(Token::Kind kind, QStringView text)
{
    const bool found = sees(kind, text);
    m_position += found ? 1 : 0;
    return found;
}

QString TokenReader::expect(Token::Kind kind)
{
    if (!sees(kind))
        throw OutsideGrammar();
    return m_tokens[m_position++].text;
}

void TokenReader::expect(std::initializer_list<QStringView> words)
{
    for (const QStringView word : words) {
        if (!accept(word))
            throw OutsideGrammar();
    }
}

void TokenReader::expectSymbol(QStringView symbol)
{
    if (!acceptSymbol(symbol))
        throw OutsideGrammar();
}

QString TokenReader::name()
{
    if (reservedWords.contains(m_tokens[m_position].text))
        throw OutsideGrammar();
    return expect(Token::Kind::Word);
}

QString TokenReader::words()
{
    QStringList found{expect(Token::Kind::Word)};
    while (sees(Token::Kind::Word) && !sees(u"at") && !sees(u"with"))
        found << expect(Token::Kind::Word);
    return found.join(u' ');
}

} // namespace quenoria::applescript
