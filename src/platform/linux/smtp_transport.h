#pragma once

#include "platform/clock.h"
#include "platform/linux/known_passwords.h"
#include "platform/linux/message_ids.h"
#include "platform/linux/sent_copies.h"
#include "platform/linux/smtp_delivery.h"
#include "platform/mail_transport.h"

#include <memory>

namespace quenoria {

/// Gives each message to the server of the user's mailbox. Called from the thread on which the
/// script runs.
class SmtpTransport {
public:
    SmtpTransport(const Clock &clock, Preferences &preferences,
                  std::shared_ptr<const KnownPasswords> passwords, SentCopies &copies,
                  SmtpConditions conditions = {});

    [[nodiscard]] TransportResult send(const OutgoingMessage &message);

private:
    const Clock &m_clock;
    MailSettings m_settings;
    MessageIds m_ids;
    std::shared_ptr<const KnownPasswords> m_passwords;
    SentCopies &m_copies;
    SmtpConditions m_conditions;
};

} // namespace quenoria
