#pragma once

#include "platform/clock.h"
#include "platform/system_log.h"

#include <optional>

namespace quenoria {

/// The computer's clock and the user's time zone; a sleep waits for the event loop. Where the
/// environment names no zone that is known, the system's own holds, then UTC, and the log says so.
class SystemClock : public Clock {
public:
    explicit SystemClock(SystemLog &log);

    [[nodiscard]] Instant now() const override;
    [[nodiscard]] QTimeZone zone() const override;
    [[nodiscard]] QFuture<void> sleep(std::chrono::nanoseconds duration,
                                      std::stop_token stop) override;

private:
    std::optional<QTimeZone> m_fallback; ///< in place of a zone that is none
};

} // namespace quenoria
