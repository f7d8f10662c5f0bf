#pragma once

#include <QString>

namespace quenoria {

/// The system's log, where failures go that no user sees.
class SystemLog {
public:
    virtual ~SystemLog() = default;

    virtual void write(const QString &line) = 0;
};

} // namespace quenoria
