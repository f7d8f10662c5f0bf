#pragma once

#include "platform/linux/bus_service.h"

#include <QDBusServiceWatcher>

namespace quenoria {

/// Whether another program's service is installed and running, followed from then on.
class ServicePresence : public QObject {
    Q_OBJECT

public:
    enum class State { unknown, notInstalled, stopped, running };

    explicit ServicePresence(const BusService &service);

    State state() const { return m_state; }

Q_SIGNALS:
    /// Also when a service that ended has come back as another process.
    void changed();

private:
    void ask(const QString &question, const QVariantList &arguments,
             const std::function<void(const QDBusMessage &)> &answered);
    void look();
    void set(State state);

    BusService m_bus;
    QString m_name;
    QDBusServiceWatcher m_watcher;
    State m_state = State::unknown;
};

} // namespace quenoria
