#include "platform/qt/single_instance.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr auto answerLimit = 5s;           ///< that a living owner gets to take the call
constexpr unsigned long betweenCalls = 20; ///< milliseconds
constexpr qint64 longestPath = 4096;       ///< bytes that a call may bring

} // namespace

SingleInstance::SingleInstance(QString folder,
                               std::function<void(const QString &file)> startedAgain,
                               FolderLock lock)
    : m_folder(std::move(folder)), m_startedAgain(std::move(startedAgain)), m_lock(std::move(lock))
{
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
        while (QLocalSocket *call = m_server.nextPendingConnection())
            answer(call);
    });
}

/// The caller writes its file's path, if it has one, and hangs up.
void SingleInstance::answer(QLocalSocket *call)
{
    const auto heard = [this, call] {
        call->deleteLater();
        m_startedAgain(QString::fromUtf8(call->read(longestPath)));
    };
    if (call->state() == QLocalSocket::UnconnectedState)
        heard();
    else
        QObject::connect(call, &QLocalSocket::disconnected, &m_server, heard);
}

/// Until the owner listens, or is gone: it may just be starting, or ending.
SingleInstance::Ownership SingleInstance::own(const QString &file)
{
    for (const QDeadlineTimer limit(answerLimit); !limit.hasExpired();
         QThread::msleep(betweenCalls)) {
        const FolderLock::Outcome outcome = m_lock.take(m_folder);
        if (const auto *failed = std::get_if<FolderLock::Failed>(&outcome))
            return Refused{failed->reason};
        if (std::holds_alternative<FolderLock::NoLocks>(outcome))
            return callOwner(file) ? Ownership(OwnedByAnother{true}) : Unguarded{};
        if (std::holds_alternative<FolderLock::Held>(outcome)) {
            listen();
            return Owner{};
        }
        if (callOwner(file))
            return OwnedByAnother{true};
    }
    return OwnedByAnother{false};
}

/// Sockets that only this user can reach: beside the lock, or where the session keeps such things
/// when the folder's path is too long for a socket or its file system has none.
QStringList SingleInstance::addresses() const
{
    const QString folder = QFileInfo(m_folder).canonicalFilePath();
    const QByteArray hash = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha1);
    const QDir runtime(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    return {folder + u"/.quenoria.socket"_s,
            runtime.filePath(u"quenoria-"_s + QString::fromLatin1(hash.toHex().first(16)))};
}

void SingleInstance::listen()
{
    for (const QString &address : addresses()) {
        QLocalServer::removeServer(address); // left by an owner that was killed
        if (m_server.listen(address))
            return;
    }
}

bool SingleInstance::callOwner(const QString &file) const
{
    return std::ranges::any_of(addresses(), [&file](const QString &address) {
        constexpr int limit = int(std::chrono::milliseconds(answerLimit).count());
        QLocalSocket call;
        call.connectToServer(address);
        if (!call.waitForConnected(limit))
            return false;
        if (!file.isEmpty()) {
            call.write(file.toUtf8());
            call.waitForBytesWritten(limit);
        }
        return true;
    });
}

} // namespace quenoria
