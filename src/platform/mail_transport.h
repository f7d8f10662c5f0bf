#pragma once

#include "platform/transport_result.h"

#include <QStringList>

namespace quenoria {

/// An e-mail as the Mail application was told to make it.
struct OutgoingMessage {
    bool visible = false;
    QString subject;
    QString content;         ///< line ends are line feeds
    QStringList recipients;  ///< addresses
    QStringList attachments; ///< absolute file paths
};

/// What carries the e-mails of the Mail application. Called from the thread on which the script
/// runs.
class MailTransport {
public:
    virtual ~MailTransport() = default;

    /// Sends the message at once.
    [[nodiscard]] virtual TransportResult send(const OutgoingMessage &message) = 0;

    /// Opens the message in front of the user, unsent.
    [[nodiscard]] virtual TransportResult showDraft(const OutgoingMessage &message) = 0;
};

} // namespace quenoria
