#pragma once

#include "platform/linux/smtp_delivery.h"
#include "platform/transport_result.h"

namespace quenoria {

/// What the user reads about a dialogue that failed, and whether the message may have left.
[[nodiscard]] TransportFailure failureOf(const SmtpReport &report, const MailboxAccount &account,
                                         const QString &recipient);

} // namespace quenoria
