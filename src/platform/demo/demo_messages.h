#pragma once

#include "platform/demo/outbox.h"
#include "platform/messages_transport.h"

#include <functional>

namespace quenoria {

/// A telephone service that accepts everything and keeps it in the outbox.
class DemoMessages : public MessagesTransport {
public:
    explicit DemoMessages(Outbox &outbox) : m_outbox(outbox) {}

    /// Calls the function with the handle of each text, on the thread that sent it. Set before
    /// anything is sent.
    void tellSent(std::function<void(const QString &)> sent) { m_sent = std::move(sent); }

    [[nodiscard]] bool offers(MessagesService service) const override;
    [[nodiscard]] TransportResult sendText(MessagesService service, const QString &handle,
                                           const QString &text) override;
    [[nodiscard]] TransportResult sendFile(MessagesService service, const QString &handle,
                                           const QString &path) override;

private:
    Outbox &m_outbox;
    std::function<void(const QString &)> m_sent;
};

} // namespace quenoria
