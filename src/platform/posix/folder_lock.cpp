#include "platform/posix/folder_lock.h"

#include "platform/system_reason.h"

#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace quenoria {

FolderLock::FolderLock() : FolderLock(&::flock) {}

FolderLock::Outcome FolderLock::take(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + u"/.quenoria.lock"_s);
    Descriptor file(
        ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        return Failed{systemReason()};
    if (m_lockFile(file.number(), LOCK_EX | LOCK_NB) == 0) {
        m_file = std::move(file);
        return Held{};
    }
    switch (errno) {
    case EWOULDBLOCK:
        return HeldByAnother{};
    case ENOLCK:
    case ENOSYS:
    case EOPNOTSUPP:
    case EINVAL:
        return NoLocks{};
    default:
        return Failed{systemReason()};
    }
}

} // namespace quenoria
