#pragma once

#include "platform/demo/outbox.h"

namespace quenoria {

/// A mail application that keeps every e-mail, sent or prepared, in the outbox.
class DemoMail : public MailTransport {
public:
    explicit DemoMail(Outbox &outbox) : m_outbox(outbox) {}

    [[nodiscard]] TransportResult send(const OutgoingMessage &message) override
    {
        return m_outbox.file(message);
    }

    [[nodiscard]] TransportResult showDraft(const OutgoingMessage &message) override
    {
        return m_outbox.file(message);
    }

private:
    Outbox &m_outbox;
};

} // namespace quenoria
