#include "support/fake_clock.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <algorithm>

namespace quenoria::test {

using namespace std::chrono;

FakeClock::FakeClock()
    : m_now(sys_days{year{2026} / 3 / 10} + hours{9}), m_zone("Europe/Paris")
{
}

QFuture<void> FakeClock::sleep(nanoseconds duration)
{
    Sleeper &sleeper = m_sleepers.emplace_back();
    sleeper.due = m_now + ceil<milliseconds>(duration);
    sleeper.promise.start();
    return sleeper.promise.future();
}

void FakeClock::advance(milliseconds duration)
{
    m_now += duration;
    for (auto sleeper = m_sleepers.begin(); sleeper != m_sleepers.end();) {
        if (sleeper->due > m_now) {
            ++sleeper;
            continue;
        }
        sleeper->promise.finish();
        sleeper = m_sleepers.erase(sleeper);
    }
    settle();
}

std::vector<milliseconds> FakeClock::pending() const
{
    std::vector<milliseconds> left;
    for (const Sleeper &sleeper : m_sleepers)
        left.push_back(sleeper.due - m_now);
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
