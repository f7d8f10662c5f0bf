#pragma once

#include "platform/hand_over_progress.h"
#include "platform/mail_settings.h"

#include <QByteArray>
#include <QDate>
#include <QStringList>

#include <chrono>
#include <optional>

namespace quenoria {

/// How far a dialogue with a submission server had come.
enum class SmtpStep { greeting, hello, encryption, identity, sender, recipient, text, answer };

/// What ended a dialogue.
enum class SmtpFault {
    none, ///< the server took the message
    unknownHost,
    unreachable,
    timedOut,
    untrusted, ///< the certificate
    noEncryption,
    noIdentity, ///< the server offers no way to give a password
    refused,    ///< the reply says why
    lost,
};

/// A server's own answer.
struct SmtpReply {
    int code = 0;
    QString text; ///< its lines joined, as the server wrote them
};

/// The certificate that a server showed.
struct ServerCertificate {
    QString name;
    QString issuer;
    QDate from;
    QDate until;
};

/// The account of one dialogue.
struct SmtpReport {
    SmtpFault fault = SmtpFault::none;
    SmtpStep step = SmtpStep::greeting; ///< the one that did not succeed
    SmtpReply reply;
    std::optional<ServerCertificate> certificate; ///< of a fault about it
    bool endWasGiven = false; ///< the whole message, so that the server may have kept it
};

/// A message with what the server must know about it.
struct SmtpMessage {
    QByteArray sender; ///< addresses that can stand in a command
    QList<QByteArray> recipients;
    QByteArray text; ///< its lines end with CRLF
};

/// How long a server may say nothing, whom it must be certified by, and who is told how far the
/// message is.
struct SmtpConditions {
    std::chrono::milliseconds limit = std::chrono::minutes(1);
    QByteArray authorities = {}; ///< a file; empty: the system's own
    HandOverProgress *progress = nullptr;
};

/// Gives the message to the account's server and waits for its answer. The connection is
/// encrypted and the server's certificate checked, or nothing is said.
[[nodiscard]] SmtpReport deliver(const SmtpMessage &message, const MailboxAccount &account,
                                 const QString &password, const SmtpConditions &conditions = {});

} // namespace quenoria
