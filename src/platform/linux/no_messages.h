#pragma once

#include "platform/messages_transport.h"

namespace quenoria {

/// A desktop without any telephone service: every script finds that none is active.
class NoMessages : public MessagesTransport {
public:
    [[nodiscard]] bool offers(MessagesService) const override { return false; }

    [[nodiscard]] TransportResult sendText(MessagesService, const QString &,
                                           const QString &) override
    {
        return TransportFailure{};
    }

    [[nodiscard]] TransportResult sendFile(MessagesService, const QString &,
                                           const QString &) override
    {
        return TransportFailure{};
    }
};

} // namespace quenoria
