#pragma once

#include "platform/linux/smtp_delivery.h"

namespace quenoria {

/// The folder of sent messages among the lines of an IMAP server's list, under the server's own
/// name for it: the one that it marks, else the first whose name says so.
///
///   "* LIST (\HasNoChildren \Sent) \"/\" \"Envoy&AOk-s\"" -> "Envoy&AOk-s"
[[nodiscard]] std::optional<QByteArray> sentFolder(const QByteArray &list);

/// Puts the message, marked as read, into that folder of the account's mailbox. Absent: it is
/// there; else why not.
[[nodiscard]] std::optional<QString> keepCopy(const QByteArray &text, const MailboxAccount &account,
                                              const QString &password,
                                              const SmtpConditions &conditions);

} // namespace quenoria
