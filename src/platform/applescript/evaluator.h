#pragma once

#include "platform/applescript/apple_script_host.h"
#include "platform/applescript/syntax.h"

namespace quenoria::applescript {

/// One run of a script: its variables, and the object that it tells at the moment. Throws the
/// ScriptFailure that the script did not catch.
class Evaluator {
public:
    Evaluator(const std::vector<ScriptableApplication *> &applications,
              const AppleScriptHost::Wait &wait);

    void execute(const Block &block);

private:
    void perform(const Assignment &assignment);
    void perform(const Tell &tell);
    void perform(const Try &attempt);
    void perform(const If &choice);
    void perform(const Raise &raise);
    void perform(const Send &send);
    void perform(const Delay &delay);
    void perform(const Activate &activate);
    void perform(const Expression &expression);

    Value evaluate(const Expression &expression);
    Value evaluate(const std::optional<Expression> &expression); ///< none: missing value
    Value value(const Literal &literal);
    Value value(const Name &name);
    Value value(const Application &application);
    Value value(const FirstService &service);
    Value value(const Buddy &buddy);
    Value value(const FileAlias &alias);
    Value value(const Make &make);
    Value value(const Concatenation &concatenation);
    Value value(const Comparison &comparison);
    Value value(const Conjunction &conjunction);

    void handle(const Try &attempt, const ScriptFailure &failure);

    const std::vector<ScriptableApplication *> &m_applications;
    const AppleScriptHost::Wait &m_wait;
    std::map<QString, Value> m_variables;
    QStringList m_files; ///< named so far
    ObjectRef m_target;  ///< never null: outside `tell` it understands nothing
};

} // namespace quenoria::applescript
