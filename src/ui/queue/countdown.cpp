#include "ui/queue/countdown.h"

#include "platform/clock.h"

#include <QCoroFuture>
#include <QPointer>

using namespace std::chrono_literals;

namespace quenoria {

void Countdown::follow(std::optional<Instant> due)
{
    if (due && *due <= m_clock.now())
        due.reset();
    if (due == m_due)
        return;
    m_due = due;
    m_stop.request_stop();
    look();
    if (!due)
        return;
    m_stop = std::stop_source();
    count(m_stop.get_token());
}

std::chrono::milliseconds Countdown::left() const
{
    return m_due ? std::max(*m_due - m_clock.now(), 0ms) : 0ms;
}

void Countdown::look()
{
    const int seconds = int(ceil<std::chrono::seconds>(left()).count());
    if (std::exchange(m_seconds, seconds) != seconds)
        Q_EMIT changed();
}

/// Wakes when the number changes and not before.
QCoro::Task<> Countdown::count(std::stop_token stop)
{
    const QPointer<Countdown> self(this);
    while (left() > 0ms) {
        const QFuture<void> pause = m_clock.sleep((left() - 1ms) % 1000 + 1ms, stop);
        co_await pause;
        if (!self || stop.stop_requested())
            co_return;
        look();
    }
    m_due.reset();
}

} // namespace quenoria
