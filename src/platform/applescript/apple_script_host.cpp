#include "platform/applescript/apple_script_host.h"

#include "platform/applescript/evaluator.h"
#include "platform/applescript/parser.h"

#include <thread>

using namespace Qt::StringLiterals;

namespace quenoria {

void AppleScriptHost::sleep(std::chrono::nanoseconds duration)
{
    std::this_thread::sleep_for(duration);
}

AppleScriptHost::AppleScriptHost(std::vector<ScriptableApplication *> applications, Wait wait)
    : m_applications(std::move(applications)), m_wait(std::move(wait))
{
}

ScriptOutcome AppleScriptHost::run(const QString &source)
{
    const std::optional<applescript::Block> script = applescript::parse(source);
    if (!script)
        return ScriptNotCreated{};
    try {
        applescript::Evaluator(m_applications, m_wait).execute(*script);
        return ScriptDone{};
    } catch (const applescript::ScriptFailure &failure) {
        const QString text = failure.message.value_or(u"sans message"_s);
        return ScriptError{u"erreur %1, %2"_s.arg(failure.number).arg(text), failure.message,
                           int(failure.number)};
    }
}

} // namespace quenoria
