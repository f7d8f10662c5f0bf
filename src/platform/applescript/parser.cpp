#include "platform/applescript/parser.h"

#include "platform/applescript/token_reader.h"

#include <map>

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

namespace {

class Parser : TokenReader {
public:
    using TokenReader::TokenReader;

    Block script()
    {
        Block statements = block();
        expect(Token::Kind::End);
        return statements;
    }

private:
    using StatementRule = Statement (Parser::*)();
    using OperandRule = Expression (Parser::*)();

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
    const auto rule = rules.find(expect(Token::Kind::Word));
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
        return {Literal{expect(Token::Kind::Text)}};
    if (sees(Token::Kind::Number))
        return {Literal{expect(Token::Kind::Number).toDouble()}};
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

Expression Parser::application() { return {Application{expect(Token::Kind::Text)}}; }

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
