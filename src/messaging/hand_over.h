#pragma once

#include "model/records.h"
#include "platform/script_host.h"
#include "store/send_outcome.h"

#include <QFuture>

namespace quenoria {

/// One message as it goes to its carrier.
struct HandOver {
    Prospect contact;
    QString recipient; ///< number or address
    QString subject;   ///< of an e-mail
    QString body;
    QString attachmentPath; ///< empty without a file
};

/// SHA-256 of subject, text and attachment path, in hexadecimal.
[[nodiscard]] QString digestOf(const HandOver &message);

/// Runs a script on another thread.
[[nodiscard]] QFuture<ScriptOutcome> runScript(ScriptHost &host, const QString &source);

/// Whether the message may have left although its script failed: the carrier did not answer in
/// time, or was lost.
[[nodiscard]] bool leavesDoubt(const ScriptError &error);

} // namespace quenoria
