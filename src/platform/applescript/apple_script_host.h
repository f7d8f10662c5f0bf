#pragma once

#include "platform/applescript/scriptable_application.h"
#include "platform/script_host.h"

#include <chrono>
#include <functional>
#include <vector>

namespace quenoria {

/// Runs the AppleScript texts that this application writes, on a system without AppleScript.
///
/// The grammar is that of those texts and no more: a text outside it is not created, and none of
/// it has run. The applications that can be told live longer than the host; telling any other
/// one is a script error.
class AppleScriptHost : public ScriptHost {
public:
    using Wait = std::function<void(std::chrono::nanoseconds)>;

    static void sleep(std::chrono::nanoseconds duration);

    /// wait is what `delay` does, on the thread of the script.
    explicit AppleScriptHost(std::vector<ScriptableApplication *> applications, Wait wait = sleep);

    [[nodiscard]] ScriptOutcome run(const QString &source) override;

private:
    std::vector<ScriptableApplication *> m_applications;
    Wait m_wait;
};

} // namespace quenoria
