#pragma once

#include "platform/applescript/scriptable_application.h"
#include "platform/messages_transport.h"

namespace quenoria {

/// "Messages": services, their buddies, and `send` of a text or a file to a buddy.
class MessagesApplication : public ScriptableApplication {
public:
    explicit MessagesApplication(MessagesTransport &transport) : m_transport(transport) {}

    [[nodiscard]] QString name() const override { return QStringLiteral("Messages"); }
    [[nodiscard]] applescript::ObjectRef session(const QStringList &files) override;

private:
    MessagesTransport &m_transport;
};

} // namespace quenoria
