#include "messaging/hand_over_watch.h"

#include <QCoroFuture>
#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

constexpr auto shortestTold = 2s;
constexpr auto glance = 250ms;

} // namespace

void HandOverWatch::begin()
{
    if (m_stop.stop_possible() && !m_stop.stop_requested())
        return;
    m_stop = std::stop_source();
    follow(m_stop.get_token());
}

void HandOverWatch::end()
{
    m_stop.request_stop();
    m_since.reset();
    say({});
}

QCoro::Task<> HandOverWatch::follow(std::stop_token stop)
{
    const QPointer<HandOverWatch> self(this);
    while (self && !stop.stop_requested()) {
        look();
        const QFuture<void> pause = m_platform.clock.sleep(glance, stop);
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
