#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// The handle under which Messages knows a phone number.
///
///   "06 39 98 00 10"    -> "+33639980010"
///   "33 6 39 98 00 10"  -> "+33639980010"
///   "1 555 010 00 00"   -> "15550100000"
[[nodiscard]] QString messagingHandle(const QString &phone);

/// The script that tells Messages to send the text, then the file if there is one, over RCS, else
/// SMS, else iMessage; a text that RCS fails to take is sent again over SMS.
[[nodiscard]] QString messagesScript(const QString &handle, const QString &body,
                                     const std::optional<QString> &attachmentPath);

} // namespace quenoria
