#pragma once

#include "platform/demo/outbox.h"
#include "platform/messages_transport.h"

namespace quenoria {

/// A telephone service that accepts everything and keeps it in the outbox.
class DemoMessages : public MessagesTransport {
public:
    explicit DemoMessages(Outbox &outbox) : m_outbox(outbox) {}

    [[nodiscard]] bool offers(MessagesService service) const override;
    [[nodiscard]] TransportResult sendText(MessagesService service, const QString &handle,
                                           const QString &text) override;
    [[nodiscard]] TransportResult sendFile(MessagesService service, const QString &handle,
                                           const QString &path) override;

private:
    Outbox &m_outbox;
};

} // namespace quenoria
