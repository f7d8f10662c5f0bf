#include "platform/linux/service_presence.h"

#include "platform/linux/bus_answer.h"

using namespace Qt::StringLiterals;

namespace quenoria {

ServicePresence::ServicePresence(const BusService &service)
    : m_bus(service.bus(), u"org.freedesktop.DBus"_s), m_name(service.name()),
      m_watcher(service.name(), service.bus())
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &ServicePresence::look);
    look();
}

void ServicePresence::ask(const QString &question, const QVariantList &arguments,
                          const std::function<void(const QDBusMessage &)> &answered)
{
    const QString bus = m_bus.name();
    whenAnswered(m_bus.ask({u"/org/freedesktop/DBus"_s, bus, question, arguments}), this, answered);
}

void ServicePresence::look()
{
    ask(u"NameHasOwner"_s, {m_name}, [this](const QDBusMessage &owned) {
        if (owned.arguments().value(0).toBool())
            return set(State::running);
        ask(u"ListActivatableNames"_s, {}, [this](const QDBusMessage &names) {
            const bool isInstalled = names.arguments().value(0).toStringList().contains(m_name);
            set(isInstalled ? State::stopped : State::notInstalled);
        });
    });
}

void ServicePresence::set(State state)
{
    m_state = state;
    Q_EMIT changed();
}

} // namespace quenoria
