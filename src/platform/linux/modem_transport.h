#pragma once

#include "platform/linux/bus_service.h"
#include "platform/linux/modem.h"
#include "platform/messages_transport.h"

namespace quenoria {

/// Sends SMS through one modem, by ModemManager. A message is handed over once and never again:
/// what the daemon did not answer for may have left.
class ModemTransport : public MessagesTransport {
public:
    struct Limits {
        std::chrono::milliseconds part{330'000}; ///< the daemon itself gives up after 300 s
        std::chrono::milliseconds registration{20'000};
    };

    ModemTransport(const QDBusConnection &bus, QString identifier, Limits limits);
    ModemTransport(const QDBusConnection &bus, const QString &identifier)
        : ModemTransport(bus, identifier, Limits())
    {
    }

    [[nodiscard]] bool offers(MessagesService service) const override
    {
        return service == MessagesService::SMS;
    }
    [[nodiscard]] TransportResult sendText(MessagesService service, const QString &handle,
                                           const QString &text) override;

    /// Always refuses: a modem sends texts alone.
    [[nodiscard]] TransportResult fileRefusal(MessagesService service,
                                              const QString &path) const override;
    [[nodiscard]] TransportResult sendFile(MessagesService service, const QString &handle,
                                           const QString &path) override;

private:
    TransportResult makeReady(Modem &modem) const;
    TransportResult find(Modem &modem) const;
    TransportResult submit(const Modem &modem, const QString &handle, const QString &text) const;

    BusService m_daemon;
    QString m_identifier;
    Limits m_limits;
};

} // namespace quenoria
