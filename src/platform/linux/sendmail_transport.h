#pragma once

#include "platform/clock.h"
#include "platform/linux/draft_opener.h"
#include "platform/mail_transport.h"

#include <chrono>

namespace quenoria {

/// Hands each message to the user's mail program, and each draft to the mail application.
class SendmailTransport : public MailTransport {
public:
    /// A program that has not ended within the limit is stopped.
    SendmailTransport(const Clock &clock, const DraftOpener &drafts,
                      std::chrono::milliseconds limit = std::chrono::minutes(1));

    [[nodiscard]] TransportResult send(const OutgoingMessage &message) override;
    [[nodiscard]] TransportResult showDraft(const OutgoingMessage &message) override;

private:
    const Clock &m_clock;
    const DraftOpener &m_drafts;
    std::chrono::milliseconds m_limit;
};

} // namespace quenoria
