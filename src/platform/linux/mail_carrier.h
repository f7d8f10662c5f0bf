#pragma once

#include "platform/linux/sendmail_transport.h"
#include "platform/linux/smtp_transport.h"

namespace quenoria {

/// What stands behind the Mail application of scripts: the road that the user chose.
class MailCarrier : public MailTransport {
public:
    MailCarrier(SmtpTransport &mailbox, SendmailTransport &mailProgram, Preferences &preferences)
        : m_mailbox(mailbox), m_mailProgram(mailProgram), m_settings(preferences)
    {
    }

    /// Whether the chosen road can be taken at all.
    [[nodiscard]] bool isSetUp() const;

    [[nodiscard]] TransportResult send(const OutgoingMessage &message) override;
    [[nodiscard]] TransportResult showDraft(const OutgoingMessage &message) override;

private:
    SmtpTransport &m_mailbox;
    SendmailTransport &m_mailProgram;
    MailSettings m_settings;
};

} // namespace quenoria
