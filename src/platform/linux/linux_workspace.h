#pragma once

#include "platform/carriers.h"
#include "platform/linux/mail_carrier.h"
#include "platform/workspace.h"

namespace quenoria {

/// The applications that the user registered with the desktop.
class LinuxWorkspace : public Workspace {
public:
    LinuxWorkspace(const MailCarrier &mail, Carriers &carriers) : m_mail(mail), m_carriers(carriers)
    {
    }

    /// Without an application for "sms:" links, the window itself composes for a chosen carrier.
    [[nodiscard]] bool openUrl(const QUrl &url) override;

    /// "com.apple.mail" for an e-mail when the chosen road is set up, since Quenoria then plays
    /// that part itself; else the desktop id of the application registered for the scheme.
    [[nodiscard]] std::optional<QString> defaultApplication(const QUrl &url) const override;

    void hideApplications(const QString &bundleIdentifier) override;
    void comeToFront() override;

private:
    const MailCarrier &m_mail;
    Carriers &m_carriers;
};

} // namespace quenoria
