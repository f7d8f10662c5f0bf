#include "platform/qt/single_instance.h"

#include "platform/qt/private_folder.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int answerLimit = 2000; ///< milliseconds that a living owner gets to accept the call

/// A socket that only this user can reach, the same for every spelling of the folder.
QString socketAddress(const QString &folder)
{
    const QByteArray hash = QCryptographicHash::hash(QFileInfo(folder).canonicalFilePath().toUtf8(),
                                                     QCryptographicHash::Sha1);
    const QDir runtime(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    return runtime.filePath(u"quenoria-"_s + QString::fromLatin1(hash.toHex().first(16)));
}

} // namespace

SingleInstance::SingleInstance(const QString &folder, std::function<void()> startedAgain)
    : m_folder(QFileInfo(folder).absoluteFilePath()), m_lock(m_folder + u"/.quenoria.lock"_s)
{
    m_lock.setStaleLockTime(0); // age proves nothing: only the owner's death frees the folder
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server,
                     [this, startedAgain = std::move(startedAgain)] {
                         m_server.nextPendingConnection()->deleteLater();
                         startedAgain();
                     });
}

bool SingleInstance::own()
{
    makePrivateFolder(m_folder);
    m_address = socketAddress(m_folder);
    if (lock())
        listen();
    else if (m_lock.error() == QLockFile::LockFailedError) {
        callOwner();
        return false;
    }
    return true;
}

/// A power cut can leave a lock file that names nobody; only a file that no living process holds
/// open can be removed.
bool SingleInstance::lock()
{
    return m_lock.tryLock(0) || (m_lock.removeStaleLockFile() && m_lock.tryLock(0));
}

void SingleInstance::listen()
{
    QLocalServer::removeServer(m_address); // left by an owner that was killed
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(m_address);
}

void SingleInstance::callOwner() const
{
    QLocalSocket call;
    call.connectToServer(m_address);
    call.waitForConnected(answerLimit);
}

} // namespace quenoria
