#pragma once

#include "platform/clock.h"
#include "platform/hand_over_progress.h"
#include "platform/linux/draft_opener.h"
#include "platform/mail_transport.h"

#include <chrono>

namespace quenoria {

/// Hands each message to the user's mail program, and each draft to the mail application.
class SendmailTransport : public MailTransport {
public:
    /// A program that neither reads nor says anything for the limit is stopped; one that goes on
    /// reading has all the time that its line needs.
    SendmailTransport(const Clock &clock, const DraftOpener &drafts, HandOverProgress &progress,
                      std::chrono::milliseconds inactivityLimit = std::chrono::minutes(1));

    [[nodiscard]] TransportResult send(const OutgoingMessage &message) override;
    [[nodiscard]] TransportResult showDraft(const OutgoingMessage &message) override;

private:
    const Clock &m_clock;
    const DraftOpener &m_drafts;
    HandOverProgress &m_progress;
    std::chrono::milliseconds m_inactivityLimit;
};

} // namespace quenoria
