#pragma once

#include "platform/run_signs.h"

#include <QDBusConnection>

namespace quenoria {

/// A run as task bars and notification services of a session bus are told of it: the Unity launcher
/// interface, which several docks read, and org.freedesktop.Notifications.
class BusRunSigns : public RunSigns {
public:
    /// The id is the name of the application's desktop file, without its ending.
    BusRunSigns(QDBusConnection bus, QString desktopId);

    void showProgress(int done, int total) override;
    void notify(const QString &title, const QString &text) override;

private:
    QDBusConnection m_bus;
    QString m_desktopId;
};

} // namespace quenoria
