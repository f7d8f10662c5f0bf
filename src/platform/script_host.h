#pragma once

#include <QString>

#include <optional>
#include <variant>

namespace quenoria {

/// The script could not be created from its text.
struct ScriptNotCreated {};

/// The script ran to its end.
struct ScriptDone {};

/// The script ended with an error record.
struct ScriptError {
    QString description;            ///< the whole record, for the system log
    std::optional<QString> message; ///< its message, when the record holds one
    int number = 0;                 ///< its number

    /// The number of an order that was not answered in time: it may have been carried out.
    static constexpr int timedOut = -1712;
};

using ScriptOutcome = std::variant<ScriptDone, ScriptNotCreated, ScriptError>;

/// Compiles and runs AppleScript texts. run() blocks until the script has ended, and may be
/// called from any thread.
class ScriptHost {
public:
    virtual ~ScriptHost() = default;

    [[nodiscard]] virtual ScriptOutcome run(const QString &source) = 0;
};

} // namespace quenoria
