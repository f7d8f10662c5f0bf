#include "platform/qt/system_clock.h"

#include <QCoreApplication>
#include <QPromise>
#include <QTimer>

#include <functional>
#include <optional>

namespace quenoria {

using namespace std::chrono;

namespace {

/// One sleeping task; it goes away once it has woken.
class Sleeper : public QObject {
public:
    Sleeper(milliseconds duration, std::stop_token stop) : QObject(QCoreApplication::instance())
    {
        m_promise.start();
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.callOnTimeout(this, [this] { wake(); });
        m_timer.start(duration);
        m_stop.emplace(std::move(stop), [this] { wake(); });
    }

    QFuture<void> future() const { return m_promise.future(); }

private:
    void wake()
    {
        m_timer.stop();
        m_promise.finish();
        deleteLater();
    }

    QPromise<void> m_promise;
    QTimer m_timer;
    std::optional<std::stop_callback<std::function<void()>>> m_stop;
};

} // namespace

Instant SystemClock::now() const { return floor<milliseconds>(system_clock::now()); }

QTimeZone SystemClock::zone() const { return QTimeZone::systemTimeZone(); }

QFuture<void> SystemClock::sleep(nanoseconds duration, std::stop_token stop)
{
    const auto *sleeper = new Sleeper(ceil<milliseconds>(duration), std::move(stop));
    return sleeper->future();
}

} // namespace quenoria
