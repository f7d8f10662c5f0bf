#pragma once

#include "platform/sharing_services.h"
#include "platform/transport_result.h"

#include <QDBusConnection>

namespace quenoria {

/// Opens e-mails, filled in and unsent, in the user's mail application: through the desktop's
/// portal where there is one, else with xdg-email.
class DraftOpener {
public:
    explicit DraftOpener(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// Whether a mail application is registered and something here can reach it.
    [[nodiscard]] bool isAvailable() const;

    [[nodiscard]] TransportResult open(const Composition &draft) const;

private:
    QDBusConnection m_bus;
};

} // namespace quenoria
