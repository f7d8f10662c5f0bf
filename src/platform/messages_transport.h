#pragma once

#include "platform/transport_result.h"

namespace quenoria {

/// The services that the Messages application may offer.
enum class MessagesService { RCS, SMS, iMessage };

/// What carries the messages that the Messages application is told to send; the lines of a text
/// end with line feeds. Called from the thread on which the script runs.
class MessagesTransport {
public:
    virtual ~MessagesTransport() = default;

    [[nodiscard]] virtual bool offers(MessagesService service) const = 0;
    [[nodiscard]] virtual TransportResult sendText(MessagesService service, const QString &handle,
                                                   const QString &text) = 0;

    /// Why a file would not be taken, asked before the text that it follows leaves.
    [[nodiscard]] virtual TransportResult fileRefusal(MessagesService /*service*/,
                                                      const QString & /*path*/) const
    {
        return {};
    }
    [[nodiscard]] virtual TransportResult sendFile(MessagesService service, const QString &handle,
                                                   const QString &path) = 0;
};

} // namespace quenoria
