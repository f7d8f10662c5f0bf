#pragma once

#include "platform/linux/smtp_delivery.h"
#include "platform/linux/stall_watch.h"

#include <curl/curl.h>

#include <memory>

namespace quenoria {

struct EndConnection {
    void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
};
using MailConnection = std::unique_ptr<CURL, EndConnection>;

/// A connection to a mail server, not yet opened: always encrypted, its certificate checked, its
/// sockets under the watch, which outlives it.
[[nodiscard]] MailConnection makeConnection(StallWatch &watch, const SmtpConditions &conditions);

/// Gives the server the password in one of the two ways that every provider offers.
void identify(CURL *handle, const QString &user, const QString &password);

/// Why the server could not be spoken to, whatever it was to be told; nothing when it could.
[[nodiscard]] std::optional<SmtpFault> connectionFault(CURLcode result, const StallWatch &watch);

/// The certificate that the server showed, if it came to that.
[[nodiscard]] std::optional<ServerCertificate> shownCertificate(CURL *handle);

} // namespace quenoria
