#pragma once

#include "platform/applescript/scriptable_application.h"
#include "platform/mail_transport.h"

namespace quenoria {

/// "Mail": outgoing messages with recipients and attachments, and `send`. `activate` puts the
/// visible messages of the block in front of the user, unsent.
class MailApplication : public ScriptableApplication {
public:
    explicit MailApplication(MailTransport &transport) : m_transport(transport) {}

    [[nodiscard]] QString name() const override { return QStringLiteral("Mail"); }
    [[nodiscard]] applescript::ObjectRef session(const QStringList &files) override;

private:
    MailTransport &m_transport;
};

} // namespace quenoria
