#pragma once

#include "platform/clock.h"

#include <QPromise>

#include <functional>
#include <list>
#include <optional>

namespace quenoria::test {

/// A clock that stands still until a test moves it; sleepers wake when their time has come.
class FakeClock : public Clock {
public:
    /// Starts on 10 March 2026 at 09:00 UTC, in Paris.
    FakeClock();

    Instant now() const override { return m_now; }
    QTimeZone zone() const override { return m_zone; }
    QFuture<void> sleep(std::chrono::nanoseconds duration, std::stop_token stop) override;

    void set(Instant now) { m_now = now; }

    /// Moves the time and lets everything that was waiting for it run.
    void advance(std::chrono::milliseconds duration);

    /// How long the sleepers still have to wait, soonest first.
    std::vector<std::chrono::milliseconds> pending() const;

private:
    struct Sleeper {
        Instant due;
        QPromise<void> promise;
        std::optional<std::stop_callback<std::function<void()>>> stop;
    };

    void wake(std::list<Sleeper>::iterator sleeper);

    Instant m_now;
    QTimeZone m_zone;
    std::list<Sleeper> m_sleepers;
};

/// Runs the event loop until nothing is left to do at once.
void settle();

} // namespace quenoria::test
