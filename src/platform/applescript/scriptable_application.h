#pragma once

#include "platform/applescript/script_object.h"

#include <QStringList>

namespace quenoria {

/// An application that scripts can tell by its name.
class ScriptableApplication {
public:
    virtual ~ScriptableApplication() = default;

    [[nodiscard]] virtual QString name() const = 0;

    /// What one `tell application` block talks to, in a script that has named these files. Blocks
    /// on several threads share nothing but the application's transport.
    [[nodiscard]] virtual applescript::ObjectRef session(const QStringList &files) = 0;
};

} // namespace quenoria
