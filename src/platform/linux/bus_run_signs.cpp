#include "platform/linux/bus_run_signs.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const auto launcherPath = u"/com/example/Quenoria"_s;
const auto launcher = u"com.canonical.Unity.LauncherEntry"_s;
const auto notifications = u"org.freedesktop.Notifications"_s;
const auto notificationsPath = u"/org/freedesktop/Notifications"_s;
constexpr int usualTime = -1; ///< as long as the service shows any

} // namespace

BusRunSigns::BusRunSigns(QDBusConnection bus, QString desktopId)
    : m_bus(std::move(bus)), m_desktopId(std::move(desktopId))
{
}

void BusRunSigns::showProgress(int done, int total)
{
    const bool isUnderWay = done < total;
    QDBusMessage update = QDBusMessage::createSignal(launcherPath, launcher, u"Update"_s);
    update << u"application://%1.desktop"_s.arg(m_desktopId)
           << QVariantMap{{u"progress"_s, isUnderWay ? double(done) / total : 0.0},
                          {u"progress-visible"_s, isUnderWay}};
    m_bus.send(update);
}

/// The service reads its text as markup.
void BusRunSigns::notify(const QString &title, const QString &text)
{
    QDBusMessage call = QDBusMessage::createMethodCall(notifications, notificationsPath,
                                                       notifications, u"Notify"_s);
    call << u"Quenoria"_s << uint(0) << m_desktopId << title << text.toHtmlEscaped()
         << QStringList() << QVariantMap{{u"desktop-entry"_s, m_desktopId}} << usualTime;
    m_bus.asyncCall(call);
}

} // namespace quenoria
