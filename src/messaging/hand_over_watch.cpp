#include "messaging/hand_over_watch.h"

#include <QCoroFuture>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

constexpr auto shortestTold = 2s;
constexpr auto glance = 250ms;

} // namespace

void HandOverWatch::begin()
{
    if (m_tasks.isIdle())
        follow();
}

void HandOverWatch::end()
{
    m_tasks.cancel();
    m_since.reset();
    say({});
}

QCoro::Task<> HandOverWatch::follow()
{
    const TaskScope::Lease lease = m_tasks.lease();
    while (!lease.isOver()) {
        look();
        const QFuture<void> pause = m_platform.clock.sleep(glance, lease.token());
        co_await pause;
    }
}

void HandOverWatch::look()
{
    const std::optional<int> percent = m_platform.handOver.percent();
    const Instant now = m_platform.clock.now();
    if (!percent)
        m_since.reset();
    else if (!m_since)
        m_since = now;
    const bool isLong = m_since && now - *m_since > shortestTold;
    say(isLong ? u"%1 %"_s.arg(*percent) : QString());
}

void HandOverWatch::say(const QString &text)
{
    if (std::exchange(m_text, text) != text)
        Q_EMIT changed();
}

} // namespace quenoria
