#pragma once

#include "platform/system_log.h"

namespace quenoria {

/// Lines of the logging category "quenoria": standard error, or the journal of the session.
class Journal : public SystemLog {
public:
    void write(const QString &line) override;
};

} // namespace quenoria
