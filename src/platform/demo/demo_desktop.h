#pragma once

#include "platform/demo/demo_carriers.h"
#include "platform/demo/demo_mail.h"
#include "platform/demo/demo_mailbox.h"
#include "platform/demo/demo_messages.h"
#include "platform/demo/demo_sharing.h"
#include "platform/demo/demo_workspace.h"
#include "platform/qt/desktop.h"

namespace quenoria {

/// An embedded desktop for trying the product: nothing leaves the computer.
class DemoDesktop : public Desktop {
public:
    /// Data, preferences and outbox all live in the folder.
    explicit DemoDesktop(const QString &folder = standardFolder());

    [[nodiscard]] static QString standardFolder();

    [[nodiscard]] QString outboxFolder() const { return m_outbox.folder(); }

    [[nodiscard]] QString notice() const override;

    [[nodiscard]] MessagesTransport &messages() override { return m_messages; }
    [[nodiscard]] MailTransport &mail() override { return m_mail; }
    [[nodiscard]] Carriers &carriers() override { return m_carriers; }
    [[nodiscard]] Workspace &workspace() override { return m_workspace; }
    [[nodiscard]] SharingServices &sharing() override { return m_sharing; }
    [[nodiscard]] Mailbox &mailbox() override { return m_mailbox; }

private:
    Outbox m_outbox;
    DemoMessages m_messages;
    DemoMail m_mail;
    DemoCarriers m_carriers;
    DemoWorkspace m_workspace;
    DemoSharing m_sharing;
    DemoMailbox m_mailbox;
};

} // namespace quenoria
