#include "platform/qt/system_clock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QPromise>
#include <QTimer>

#include <functional>
#include <optional>

namespace quenoria {

using namespace std::chrono;
using namespace Qt::StringLiterals;

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

/// The zone of a file, whose path ends in its name: "/usr/share/zoneinfo/Europe/Paris".
QTimeZone zoneOfFile(const QString &path)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return QTimeZone(file.section(u"/zoneinfo/"_s, 1).toLatin1());
}

QTimeZone systemsOwn()
{
    if (QTimeZone zone = zoneOfFile(u"/etc/localtime"_s); zone.isValid())
        return zone;
    QFile name(u"/etc/timezone"_s);
    return QTimeZone(name.open(QIODevice::ReadOnly) ? name.readAll().trimmed() : QByteArray());
}

} // namespace

SystemClock::SystemClock(SystemLog &log)
{
    if (QTimeZone::systemTimeZone().isValid())
        return;
    const QString wanted = qEnvironmentVariable("TZ");
    m_fallback = zoneOfFile(wanted.startsWith(u':') ? wanted.sliced(1) : wanted);
    if (m_fallback->isValid())
        return;
    m_fallback = systemsOwn();
    if (!m_fallback->isValid())
        m_fallback = QTimeZone::utc();
    log.write(u"Fuseau horaire inconnu (TZ=%1) : celui du système est utilisé, %2"_s.arg(
        wanted, QString::fromLatin1(m_fallback->id())));
}

Instant SystemClock::now() const { return floor<milliseconds>(system_clock::now()); }

QTimeZone SystemClock::zone() const
{
    const QTimeZone zone = m_fallback.value_or(QTimeZone::systemTimeZone());
    return zone.isValid() ? zone : QTimeZone::utc();
}

QFuture<void> SystemClock::sleep(nanoseconds duration, std::stop_token stop)
{
    const auto *sleeper = new Sleeper(ceil<milliseconds>(duration), std::move(stop));
    return sleeper->future();
}

} // namespace quenoria
