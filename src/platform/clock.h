#pragma once

#include "model/instant.h"

#include <QFuture>
#include <QTimeZone>

namespace quenoria {

/// Time as the application sees it. Tests move it by hand, so nothing else asks the system.
class Clock
{
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;

    /// The user's time zone: months, dates shown and dates typed are local.
    [[nodiscard]] virtual QTimeZone zone() const = 0;

    /// Finishes after the duration; the caller awaits it on the main thread.
    [[nodiscard]] virtual QFuture<void> sleep(std::chrono::nanoseconds duration) = 0;
};

} // namespace quenoria
