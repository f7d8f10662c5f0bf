#include "ui/queue/countdown.h"

#include "platform/clock.h"

#include <QCoroFuture>

using namespace std::chrono_literals;

namespace quenoria {

void Countdown::follow(std::optional<Instant> due)
{
    if (due && *due <= m_clock.now())
        due.reset();
    if (due == m_due)
        return;
    m_due = due;
    m_tasks.cancel();
    look();
    if (due)
        count();
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
QCoro::Task<> Countdown::count()
{
    const TaskScope::Lease lease = m_tasks.lease();
    while (left() > 0ms) {
        const QFuture<void> pause = m_clock.sleep((left() - 1ms) % 1000 + 1ms, lease.token());
        co_await pause;
        if (lease.isOver())
            co_return;
        look();
    }
    m_due.reset();
}

} // namespace quenoria
