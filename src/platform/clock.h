#pragma once

#include "model/instant.h"

#include <QFuture>
#include <QTimeZone>

#include <stop_token>

namespace quenoria {

/// Time as the application sees it. Tests move it by hand, so nothing else asks the system.
class Clock {
public:
    virtual ~Clock() = default;

    [[nodiscard]] virtual Instant now() const = 0;

    /// The user's time zone: months, dates shown and dates typed are local.
    [[nodiscard]] virtual QTimeZone zone() const = 0;

    /// Finishes after the duration, or as soon as a stop is requested; called and awaited on the
    /// main thread, where the stop is requested too.
    [[nodiscard]] virtual QFuture<void> sleep(std::chrono::nanoseconds duration,
                                              std::stop_token stop = {}) = 0;
};

} // namespace quenoria
