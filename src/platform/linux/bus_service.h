#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <chrono>

namespace quenoria {

inline const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

/// One order to a service.
struct BusOrder {
    QString path;
    QString interface;
    QString member;
    QVariantList arguments = {};
};

/// A service of another program on a D-Bus bus, which is never started by asking it.
class BusService {
public:
    static constexpr std::chrono::milliseconds shortLimit{10'000};

    BusService(QDBusConnection bus, QString name) : m_bus(std::move(bus)), m_name(std::move(name))
    {
    }

    const QString &name() const { return m_name; }
    const QDBusConnection &bus() const { return m_bus; }

    /// Waits for the answer, which is an error when none came within the limit. Not for the main
    /// thread.
    [[nodiscard]] QDBusMessage call(const BusOrder &order,
                                    std::chrono::milliseconds limit = shortLimit) const;

    /// Does not wait.
    QDBusPendingCall ask(const BusOrder &order, std::chrono::milliseconds limit = shortLimit) const;

    /// Calls the receiver's slot at each such signal of any object; false when that is refused.
    [[nodiscard]] bool listen(const QString &interface, const QString &signal, QObject *receiver,
                              const char *slot);

private:
    QDBusMessage message(const BusOrder &order) const;

    QDBusConnection m_bus;
    QString m_name;
};

} // namespace quenoria
