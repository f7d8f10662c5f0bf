#pragma once

#include "platform/linux/bus_service.h"
#include "platform/messages_transport.h"

namespace quenoria {

/// Sends SMS and files through one paired telephone, by KDE Connect. That service answers before
/// the telephone has done anything: what counts is the message that the telephone shows afterwards.
class PhoneTransport : public MessagesTransport {
public:
    PhoneTransport(const QDBusConnection &bus, QString device,
                   std::chrono::milliseconds confirmation = std::chrono::minutes(1));

    [[nodiscard]] bool offers(MessagesService service) const override
    {
        return service == MessagesService::SMS;
    }
    [[nodiscard]] TransportResult sendText(MessagesService service, const QString &handle,
                                           const QString &text) override;

    [[nodiscard]] TransportResult fileRefusal(MessagesService service,
                                              const QString &path) const override;

    /// Follows a text that has left: a failure leaves the message half sent.
    [[nodiscard]] TransportResult sendFile(MessagesService service, const QString &handle,
                                           const QString &path) override;

private:
    TransportResult unreachable() const;
    TransportResult submit(const QString &handle, const QString &text, const QStringList &files);

    BusService m_daemon;
    QString m_device;
    std::chrono::milliseconds m_confirmation;
    qint64 m_lastConfirmed = -1; ///< the telephone's message, which confirms no other one
};

} // namespace quenoria
