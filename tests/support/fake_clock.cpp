#include "support/fake_clock.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <algorithm>

namespace quenoria::test {

using namespace std::chrono;

FakeClock::FakeClock() : m_now(sys_days{year{2026} / 3 / 10} + hours{9}), m_zone("Europe/Paris") {}

QFuture<void> FakeClock::sleep(nanoseconds duration, std::stop_token stop)
{
    const auto sleeper = m_sleepers.emplace(m_sleepers.end());
    sleeper->due = m_now + ceil<milliseconds>(duration);
    sleeper->promise.start();
    QFuture<void> future = sleeper->promise.future();
    if (stop.stop_requested())
        wake(sleeper);
    else
        sleeper->stop.emplace(std::move(stop), [sleeper] { sleeper->due = Instant::min(); });
    return future;
}

void FakeClock::wake(std::list<Sleeper>::iterator sleeper)
{
    sleeper->promise.finish();
    m_sleepers.erase(sleeper);
}

void FakeClock::advance(milliseconds duration)
{
    m_now += duration;
    for (auto sleeper = m_sleepers.begin(); sleeper != m_sleepers.end();) {
        const auto current = sleeper++;
        if (current->due <= m_now)
            wake(current);
    }
    settle();
}

std::vector<milliseconds> FakeClock::pending() const
{
    std::vector<milliseconds> left;
    for (const Sleeper &sleeper : m_sleepers) {
        if (sleeper.due != Instant::min()) // else it was told to stop
            left.push_back(sleeper.due - m_now);
    }
    std::ranges::sort(left);
    return left;
}

void settle()
{
    constexpr int rounds = 10;
    for (int round = 0; round < rounds; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace quenoria::test
