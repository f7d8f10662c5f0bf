#include "platform/applescript/parser.h"

#include "platform/applescript/lexer.h"

#include <QScopeGuard>
#include <QSet>

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

namespace {

/// Deeper nesting is refused, so that no text can exhaust the stack.
constexpr int deepestNesting = 64;

const QSet<QString> reservedWords{u"and"_s,    u"as"_s, u"at"_s,  u"else"_s, u"end"_s,
                                  u"error"_s,  u"if"_s, u"is"_s,  u"new"_s,  u"not"_s,
                                  u"number"_s, u"of"_s, u"on"_s,  u"set"_s,  u"tell"_s,
                                  u"then"_s,   u"to"_s, u"try"_s, u"with"_s};

/// Ends the parsing; never leaves parse().
struct OutsideGrammar {};

class Parser {
public:
    explicit Parser(std::vector<Token> tokens) : m_tokens(std::move(tokens)) {}

    Block script()
    {
        Block statements = block();
        take(Token::Kind::End);
        return statements;
    }

private:
    using StatementRule = Statement (Parser::*)();
    using OperandRule = Expression (Parser::*)();

    bool sees(Token::Kind kind) const { return m_tokens[m_position].kind == kind; }
    bool sees(Token::Kind kind, QStringView text) const
    {
        return sees(kind) && m_tokens[m_position].text == text;
    }
    bool sees(QStringView word) const { return sees(Token::Kind::Word, word); }

    QString take(Token::Kind kind)
    {
        if (!sees(kind))
            throw OutsideGrammar();
        return m_tokens[m_position++].text;
    }

    bool accept(Token::Kind kind, QStringView text)
    {
        const bool found = sees(kind, text);
        m_position += found ? 1 : 0;
        return found;
    }
    bool accept(QStringView word) { return accept(Token::Kind::Word, word); }
    bool acceptSymbol(QStringView symbol) { return accept(Token::Kind::Symbol, symbol); }

    void expectSymbol(QStringView symbol)
    {
        if (!acceptSymbol(symbol))
            throw OutsideGrammar();
    }

    void expect(std::initializer_list<QStringView> words)
    {
        for (const QStringView word : words) {
            if (!accept(word))
                throw OutsideGrammar();
        }
    }

    void lineEnd() { take(Token::Kind::LineEnd); }

    QString name()
    {
        if (reservedWords.contains(m_tokens[m_position].text))
            throw OutsideGrammar();
        return take(Token::Kind::Word);
    }

    /// A term of several words, such as "outgoing message".
    QString words()
    {
        QStringList found{take(Token::Kind::Word)};
        while (sees(Token::Kind::Word) && !sees(u"at") && !sees(u"with"))
            found << take(Token::Kind::Word);
        return found.join(u' ');
    }

    auto oneLevelDown()
    {
        if (++m_depth > deepestNesting)
            throw OutsideGrammar();
        return qScopeGuard([this] { --m_depth; });
    }

    Block block();
    Statement statement();
    Statement assignment();
    Statement tell();
    Statement tryBlock();
    Statement condition();
    Statement raise();
    Statement sending();
    Statement delay();
    Statement activate();

    Expression expression();
    Expression comparison();
    Expression joined();
    Expression operand();
    ExpressionRef operandRef() { return std::make_unique<Expression>(operand()); }
    std::optional<Expression> operandAfter(QStringView word);
    Expression word();
    Expression truth();
    Expression falsehood();
    Expression carriageReturn();
    Expression missingValue();
    Expression application();
    Expression firstService();
    Expression buddy();
    Expression fileAlias();
    Expression make();

    std::vector<Token> m_tokens;
    std::size_t m_position = 0;
    int m_depth = 0;
};

Block Parser::block()
{
    Block statements;
    if (sees(Token::Kind::LineEnd))
        lineEnd();
    while (!sees(u"end") && !sees(u"else") && !sees(u"on") && !sees(Token::Kind::End)) {
        statements.push_back(statement());
        if (!sees(Token::Kind::End))
            lineEnd();
    }
    return statements;
}

Statement Parser::statement()
{
    static const std::map<QStringView, StatementRule> rules{
        {u"set", &Parser::assignment}, {u"tell", &Parser::tell},
        {u"try", &Parser::tryBlock},   {u"if", &Parser::condition},
        {u"error", &Parser::raise},    {u"send", &Parser::sending},
        {u"delay", &Parser::delay},    {u"activate", &Parser::activate},
    };
    const auto level = oneLevelDown();
    if (sees(u"make"))
        return {operand()};
    const auto rule = rules.find(take(Token::Kind::Word));
    if (rule == rules.end())
        throw OutsideGrammar();
    return (this->*rule->second)();
}

Statement Parser::assignment()
{
    QString variable = name();
    expect({u"to"});
    return {Assignment{std::move(variable), expression()}};
}

Statement Parser::tell()
{
    Tell tell{operand(), {}};
    lineEnd();
    tell.body = block();
    expect({u"end", u"tell"});
    return {std::move(tell)};
}

Statement Parser::tryBlock()
{
    Try attempt;
    lineEnd();
    attempt.body = block();
    if (accept(u"on")) {
        expect({u"error"});
        if (!sees(Token::Kind::LineEnd)) {
            attempt.messageName = name();
            if (accept(u"number"))
                attempt.numberName = name();
        }
        lineEnd();
        attempt.handler = block();
    }
    expect({u"end", u"try"});
    return {std::move(attempt)};
}

Statement Parser::condition()
{
    If choice{expression(), {}, {}};
    expect({u"then"});
    if (!sees(Token::Kind::LineEnd)) {
        choice.body.push_back(statement());
        return {std::move(choice)};
    }
    choice.body = block();
    if (accept(u"else")) {
        lineEnd();
        choice.otherwise = block();
    }
    expect({u"end", u"if"});
    return {std::move(choice)};
}

Statement Parser::raise()
{
    Raise raise;
    if (!sees(u"number") && !sees(Token::Kind::LineEnd) && !sees(Token::Kind::End))
        raise.message = joined();
    raise.number = operandAfter(u"number");
    return {std::move(raise)};
}

Statement Parser::sending()
{
    Expression what = joined();
    return {Send{std::move(what), operandAfter(u"to")}};
}

Statement Parser::delay() { return {Delay{operand()}}; }

Statement Parser::activate() { return {Activate{}}; }

Expression Parser::expression()
{
    Conjunction all;
    do
        all.terms.push_back(comparison());
    while (accept(u"and"));
    return all.terms.size() == 1 ? std::move(all.terms.front()) : Expression{std::move(all)};
}

Expression Parser::comparison()
{
    Expression left = joined();
    if (!accept(u"is"))
        return left;
    const bool negated = accept(u"not");
    return {Comparison{std::make_unique<Expression>(std::move(left)),
                       std::make_unique<Expression>(joined()), negated}};
}

Expression Parser::joined()
{
    Concatenation all;
    do
        all.pieces.push_back(operand());
    while (acceptSymbol(u"&"));
    return all.pieces.size() == 1 ? std::move(all.pieces.front()) : Expression{std::move(all)};
}

std::optional<Expression> Parser::operandAfter(QStringView word)
{
    return accept(word) ? std::optional(operand()) : std::nullopt;
}

Expression Parser::operand()
{
    const auto level = oneLevelDown();
    if (sees(Token::Kind::Text))
        return {Literal{take(Token::Kind::Text)}};
    if (sees(Token::Kind::Number))
        return {Literal{take(Token::Kind::Number).toDouble()}};
    return word();
}

Expression Parser::word()
{
    static const std::map<QStringView, OperandRule> rules{
        {u"true", &Parser::truth},
        {u"false", &Parser::falsehood},
        {u"return", &Parser::carriageReturn},
        {u"missing", &Parser::missingValue},
        {u"application", &Parser::application},
        {u"first", &Parser::firstService},
        {u"buddy", &Parser::buddy},
        {u"POSIX", &Parser::fileAlias},
        {u"make", &Parser::make},
    };
    QString word = name();
    const auto rule = rules.find(word);
    return rule == rules.end() ? Expression{Name{std::move(word)}} : (this->*rule->second)();
}

Expression Parser::truth() { return {Literal{true}}; }

Expression Parser::falsehood() { return {Literal{false}}; }

Expression Parser::carriageReturn() { return {Literal{u"\r"_s}}; }

Expression Parser::missingValue()
{
    expect({u"value"});
    return {Literal{MissingValue{}}};
}

Expression Parser::application() { return {Application{take(Token::Kind::Text)}}; }

Expression Parser::firstService()
{
    expect({u"service", u"whose", u"service", u"type", u"is"});
    return {FirstService{name()}};
}

Expression Parser::buddy()
{
    ExpressionRef handle = operandRef();
    expect({u"of"});
    return {Buddy{std::move(handle), operandRef()}};
}

Expression Parser::fileAlias()
{
    expect({u"file"});
    ExpressionRef path = operandRef();
    expect({u"as", u"alias"});
    return {FileAlias{std::move(path)}};
}

Expression Parser::make()
{
    Make make;
    expect({u"new"});
    make.element = words();
    if (accept(u"at"))
        make.place = words();
    expect({u"with", u"properties"});
    expectSymbol(u"{");
    do {
        QString label = words();
        expectSymbol(u":");
        make.properties.push_back({std::move(label), expression()});
    } while (acceptSymbol(u","));
    expectSymbol(u"}");
    if (make.place.isEmpty() && accept(u"at"))
        make.place = words();
    return {std::move(make)};
}

} // namespace

std::optional<Block> parse(const QString &source)
{
    std::optional<std::vector<Token>> tokens = tokenize(source);
    if (!tokens)
        return std::nullopt;
    try {
        return Parser(std::move(*tokens)).script();
    } catch (const OutsideGrammar &) {
        return std::nullopt;
    }
}

} // namespace quenoria::applescript
