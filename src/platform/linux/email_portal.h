#pragma once

#include "platform/sharing_services.h"
#include "platform/transport_result.h"

#include <QDBusConnection>

namespace quenoria {

/// The desktop portal's call that opens a new e-mail in the user's mail application.
class EmailPortal {
public:
    explicit EmailPortal(QDBusConnection bus) : m_bus(std::move(bus)) {}

    /// Whether the portal answers and takes several recipients.
    [[nodiscard]] bool isPresent() const;

    [[nodiscard]] TransportResult compose(const Composition &draft) const;

private:
    QDBusConnection m_bus;
};

} // namespace quenoria
