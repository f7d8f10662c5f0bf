#include "platform/linux/bus_service.h"

#include <QDBusVariant>

namespace quenoria {

QDBusMessage BusService::message(const BusOrder &order) const
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(m_name, order.path, order.interface, order.member);
    call.setArguments(order.arguments);
    call.setAutoStartService(false);
    return call;
}

QDBusMessage BusService::call(const BusOrder &order, std::chrono::milliseconds limit) const
{
    return m_bus.call(message(order), QDBus::Block, int(limit.count()));
}

QDBusPendingCall BusService::ask(const BusOrder &order, std::chrono::milliseconds limit) const
{
    return m_bus.asyncCall(message(order), int(limit.count()));
}

bool BusService::listen(const QString &interface, const QString &signal, QObject *receiver,
                        const char *slot)
{
    qRegisterMetaType<QDBusVariant>("QDBusVariant"); // by the name that slots' texts give it
    return m_bus.connect(m_name, QString(), interface, signal, receiver, slot);
}

} // namespace quenoria
