#pragma once

#include "platform/clock.h"
#include "platform/mail_transport.h"

#include <QByteArray>

#include <variant>

namespace quenoria {

/// Who sends a message, and the name that it goes by.
struct MailIdentity {
    QString name; ///< may be empty
    QString address;
    QString replyTo;      ///< empty: the sender
    QByteArray messageId; ///< without angle brackets
};

/// The message as it travels: seven-bit, lines ending with CRLF, the text in quoted-printable,
/// the files in base64, dated by the clock. Without an identity it has no From: the program that
/// sends it knows the sender. Fails when an attachment cannot be read or an address could not
/// stand in a header.
[[nodiscard]] std::variant<QByteArray, TransportFailure>
mimeMessage(const OutgoingMessage &message, const Clock &clock,
            const std::optional<MailIdentity> &identity = {});

} // namespace quenoria
