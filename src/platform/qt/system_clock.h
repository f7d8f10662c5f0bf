#pragma once

#include "platform/clock.h"

namespace quenoria {

/// The computer's clock and the user's time zone; a sleep waits for the event loop.
class SystemClock : public Clock {
public:
    [[nodiscard]] Instant now() const override;
    [[nodiscard]] QTimeZone zone() const override;
    [[nodiscard]] QFuture<void> sleep(std::chrono::nanoseconds duration,
                                      std::stop_token stop) override;
};

} // namespace quenoria
