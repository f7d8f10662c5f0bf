#pragma once

#include "platform/mail_settings.h"

#include <optional>

namespace quenoria {

/// The settings that the large providers publish for an address of theirs; absent for others.
///
///   "alix@gmail.com" -> smtp.gmail.com, 587, STARTTLS, user "alix@gmail.com"
[[nodiscard]] std::optional<MailboxAccount> providerSettings(const QString &address);

/// Where the password for another program is made, for providers that refuse the usual one: a
/// sentence that begins with a space, or nothing.
[[nodiscard]] QString passwordAdvice(const QString &address);

} // namespace quenoria
