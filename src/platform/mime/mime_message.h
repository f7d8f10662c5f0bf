#pragma once

#include "platform/clock.h"
#include "platform/mail_transport.h"

#include <QByteArray>

#include <variant>

namespace quenoria {

/// The message as it travels: seven-bit, lines ending with CRLF, the text in quoted-printable,
/// the files in base64, dated by the clock. It has no From: the program that sends it knows the
/// sender. Fails when an attachment cannot be read or an address could not stand in a header.
[[nodiscard]] std::variant<QByteArray, TransportFailure> mimeMessage(const OutgoingMessage &message,
                                                                     const Clock &clock);

} // namespace quenoria
