#pragma once

#include "platform/linux/draft_opener.h"
#include "platform/linux/keyring.h"
#include "platform/linux/linux_mailbox.h"
#include "platform/linux/linux_sharing.h"
#include "platform/linux/linux_workspace.h"
#include "platform/linux/sms_carriers.h"
#include "platform/qt/desktop.h"

namespace quenoria {

/// The user's own desktop: what it says was sent has left the computer.
class LinuxDesktop : public Desktop {
public:
    explicit LinuxDesktop(const QString &dataFolder = standardDataFolder());

    /// "Quenoria v.7.29" in the user's data directory.
    [[nodiscard]] static QString standardDataFolder();

    [[nodiscard]] MessagesTransport &messages() override { return m_carriers; }
    [[nodiscard]] MailTransport &mail() override { return m_mail; }
    [[nodiscard]] Carriers &carriers() override { return m_carriers; }
    [[nodiscard]] Workspace &workspace() override { return m_workspace; }
    [[nodiscard]] SharingServices &sharing() override { return m_sharing; }
    [[nodiscard]] Mailbox &mailbox() override { return m_mailbox; }

private:
    DraftOpener m_drafts;
    Keyring m_keyring;
    SmsCarriers m_carriers;
    std::shared_ptr<KnownPasswords> m_passwords = std::make_shared<KnownPasswords>();
    SentCopies m_copies;
    SmtpTransport m_smtp;
    SendmailTransport m_sendmail;
    MailCarrier m_mail;
    LinuxMailbox m_mailbox;
    LinuxWorkspace m_workspace;
    LinuxSharing m_sharing;
};

} // namespace quenoria
