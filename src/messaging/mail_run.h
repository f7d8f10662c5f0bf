#pragma once

#include "model/instant.h"
#include "platform/mail_settings.h"

#include <vector>

namespace quenoria {

class ProspectStore;

/// When the last of so many e-mails may leave at the pace that a mailbox bears, given when others
/// did. After as many as a day bears, the same turns come again a day later.
[[nodiscard]] Instant lastMailTurn(std::vector<Instant> sent, MailPace pace, Instant now,
                                   int messages);

/// Every e-mail in the histories.
[[nodiscard]] std::vector<Instant> emailsSent(const ProspectStore &store);

} // namespace quenoria
