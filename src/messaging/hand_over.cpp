#include "messaging/hand_over.h"

#include <QCryptographicHash>
#include <QtConcurrent>

namespace quenoria {

QString digestOf(const HandOver &message)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &part : {message.subject, message.body, message.attachmentPath}) {
        hash.addData(part.toUtf8());
        hash.addData(QByteArrayView("\0", 1)); // so that no text can move into its neighbour
    }
    return QString::fromLatin1(hash.result().toHex());
}

QFuture<ScriptOutcome> runScript(ScriptHost &host, const QString &source)
{
    return QtConcurrent::run([&host, source] { return host.run(source); });
}

bool leavesDoubt(const ScriptError &error) { return error.number == ScriptError::timedOut; }

} // namespace quenoria
