#include "platform/applescript/evaluator.h"

#include <QFileInfo>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria::applescript {

Evaluator::Evaluator(const std::vector<ScriptableApplication *> &applications,
                     const AppleScriptHost::Wait &wait)
    : m_applications(applications), m_wait(wait), m_target(std::make_shared<ScriptObject>())
{
}

void Evaluator::execute(const Block &block)
{
    for (const Statement &statement : block)
        std::visit([this](const auto &node) { perform(node); }, statement.node);
}

void Evaluator::perform(const Assignment &assignment)
{
    m_variables[assignment.name] = evaluate(assignment.value);
}

void Evaluator::perform(const Tell &tell)
{
    const ObjectRef outer = std::exchange(m_target, as<ObjectRef>(evaluate(tell.target)));
    const auto restore = qScopeGuard([this, &outer] { m_target = outer; });
    execute(tell.body);
}

void Evaluator::perform(const Try &attempt)
{
    try {
        execute(attempt.body);
    } catch (const ScriptFailure &failure) {
        handle(attempt, failure);
    }
}

void Evaluator::handle(const Try &attempt, const ScriptFailure &failure)
{
    if (attempt.messageName)
        m_variables[*attempt.messageName] =
            failure.message ? Value(*failure.message) : Value(MissingValue{});
    if (attempt.numberName)
        m_variables[*attempt.numberName] = failure.number;
    execute(attempt.handler);
}

void Evaluator::perform(const If &choice)
{
    execute(as<bool>(evaluate(choice.condition)) ? choice.body : choice.otherwise);
}

void Evaluator::perform(const Raise &raise)
{
    const Value message = evaluate(raise.message);
    const double number =
        raise.number ? as<double>(evaluate(raise.number)) : double(ErrorNumber::Raised);
    if (std::holds_alternative<MissingValue>(message))
        throw ScriptFailure(std::nullopt, number);
    throw ScriptFailure(as<QString>(message), number);
}

void Evaluator::perform(const Send &send)
{
    const Value what = evaluate(send.what);
    m_target->send(what, evaluate(send.recipient));
}

void Evaluator::perform(const Delay &delay)
{
    constexpr double longest = 3600;
    const std::chrono::duration<double> seconds(
        std::min(as<double>(evaluate(delay.seconds)), longest));
    m_wait(std::chrono::duration_cast<std::chrono::nanoseconds>(seconds));
}

void Evaluator::perform(const Activate &) { m_target->activate(); }

void Evaluator::perform(const Expression &expression) { evaluate(expression); }

Value Evaluator::evaluate(const Expression &expression)
{
    return std::visit([this](const auto &node) { return value(node); }, expression.node);
}

Value Evaluator::evaluate(const std::optional<Expression> &expression)
{
    return expression ? evaluate(*expression) : MissingValue{};
}

Value Evaluator::value(const Literal &literal) { return literal.value; }

Value Evaluator::value(const Name &name)
{
    const auto variable = m_variables.find(name.name);
    return variable == m_variables.end() ? m_target->property(name.name) : variable->second;
}

Value Evaluator::value(const Application &application)
{
    const auto found = std::find_if(
        m_applications.begin(), m_applications.end(),
        [&application](const auto *candidate) { return candidate->name() == application.name; });
    if (found == m_applications.end())
        throw ScriptFailure(u"L’application « %1 » est introuvable."_s.arg(application.name),
                            ErrorNumber::ApplicationNotFound);
    return (*found)->session(m_files);
}

Value Evaluator::value(const FirstService &service) { return m_target->firstService(service.type); }

Value Evaluator::value(const Buddy &buddy)
{
    const QString handle = as<QString>(evaluate(*buddy.handle));
    return as<ObjectRef>(evaluate(*buddy.service))->buddy(handle);
}

Value Evaluator::value(const FileAlias &alias)
{
    const QString path = as<QString>(evaluate(*alias.path));
    const QFileInfo file(path);
    if (!file.exists())
        throw ScriptFailure(u"Le fichier « %1 » est introuvable."_s.arg(path),
                            ErrorNumber::FileNotFound);
    if (!file.isFile() || !file.isReadable())
        throw ScriptFailure(u"Le fichier « %1 » ne peut pas être lu."_s.arg(path),
                            ErrorNumber::FileNotFound);
    m_files << path;
    return Alias{path};
}

Value Evaluator::value(const Make &make)
{
    Properties properties;
    for (const auto &[label, expression] : make.properties)
        properties.insert_or_assign(label, evaluate(expression));
    return m_target->make(make.element, make.place, properties);
}

Value Evaluator::value(const Concatenation &concatenation)
{
    QString text;
    for (const Expression &piece : concatenation.pieces)
        text += as<QString>(evaluate(piece));
    return text;
}

Value Evaluator::value(const Comparison &comparison)
{
    const bool same = evaluate(*comparison.left) == evaluate(*comparison.right);
    return same != comparison.negated;
}

Value Evaluator::value(const Conjunction &conjunction)
{
    return std::all_of(conjunction.terms.begin(), conjunction.terms.end(),
                       [this](const Expression &term) { return as<bool>(evaluate(term)); });
}

} // namespace quenoria::applescript
