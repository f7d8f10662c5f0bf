#pragma once

#include "platform/linux/draft_opener.h"
#include "platform/linux/linux_sharing.h"
#include "platform/linux/linux_workspace.h"
#include "platform/linux/no_messages.h"
#include "platform/linux/sendmail_transport.h"
#include "platform/qt/desktop.h"

namespace quenoria {

/// The user's own desktop: what it says was sent has left the computer.
class LinuxDesktop : public Desktop {
public:
    explicit LinuxDesktop(const QString &dataFolder = standardDataFolder());

    /// "Quenoria v.7.29" in the user's data directory.
    [[nodiscard]] static QString standardDataFolder();

    [[nodiscard]] MessagesTransport &messages() override { return m_messages; }
    [[nodiscard]] MailTransport &mail() override { return m_mail; }
    [[nodiscard]] Workspace &workspace() override { return m_workspace; }
    [[nodiscard]] SharingServices &sharing() override { return m_sharing; }

private:
    DraftOpener m_drafts;
    NoMessages m_messages;
    SendmailTransport m_mail;
    LinuxWorkspace m_workspace;
    LinuxSharing m_sharing;
};

} // namespace quenoria
