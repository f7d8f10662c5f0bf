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

} // namespace

SingleInstance::SingleInstance(QString folder, std::function<void()> startedAgain, FolderLock lock)
    : m_folder(std::move(folder)), m_lock(std::move(lock))
{
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server,
                     [this, startedAgain = std::move(startedAgain)] {
                         m_server.nextPendingConnection()->deleteLater();
                         startedAgain();
                     });
}

/// Until the owner listens, or is gone: it may just be starting, or ending.
SingleInstance::Ownership SingleInstance::own()
{
    for (const QDeadlineTimer limit(answerLimit); !limit.hasExpired();
         QThread::msleep(betweenCalls)) {
        const FolderLock::Outcome outcome = m_lock.take(m_folder);
        if (const auto *failed = std::get_if<FolderLock::Failed>(&outcome))
            return Refused{failed->reason};
        if (std::holds_alternative<FolderLock::NoLocks>(outcome))
            return callOwner() ? Ownership(OwnedByAnother{true}) : Unguarded{};
        if (std::holds_alternative<FolderLock::Held>(outcome)) {
            listen();
            return Owner{};
        }
        if (callOwner())
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

bool SingleInstance::callOwner() const
{
    return std::ranges::any_of(addresses(), [](const QString &address) {
        QLocalSocket call;
        call.connectToServer(address);
        return call.waitForConnected(int(std::chrono::milliseconds(answerLimit).count()));
    });
}

} // namespace quenoria
