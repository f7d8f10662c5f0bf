#include "platform/posix/private_folder.h"

#include "platform/posix/descriptor.h"
#include "platform/system_reason.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>

namespace quenoria {

namespace {

constexpr ::mode_t others = S_IRWXG | S_IRWXO;

/// True when it stood open to others and was the user's to close.
bool closeFile(const Descriptor &file)
{
    struct ::stat found {};
    return file.isOpen() && ::fstat(file.number(), &found) == 0 && found.st_uid == ::geteuid() &&
           (found.st_mode & others) != 0 && !S_ISFIFO(found.st_mode) &&
           ::fchmod(file.number(), found.st_mode & ~others & ALLPERMS) == 0;
}

} // namespace

bool belongsToAnother(const QString &folder)
{
    struct ::stat found {};
    return ::stat(QFile::encodeName(folder).constData(), &found) == 0 &&
           found.st_uid != ::geteuid();
}

bool closeToOthers(const QString &folder, const QStringList &names)
{
    const auto close = [](const QString &path, int kind) {
        const QByteArray name = QFile::encodeName(path);
        return closeFile(
            Descriptor(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | kind)));
    };
    bool stoodOpen = close(folder, O_DIRECTORY);
    for (const QString &name : QDir(folder).entryList(names, QDir::Files | QDir::Hidden))
        stoodOpen = close(QDir(folder).filePath(name), O_NOFOLLOW) || stoodOpen;
    return stoodOpen;
}

std::optional<QString> unreadable(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const Descriptor file(::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen())
        return errno == ENOENT ? std::nullopt : std::optional(systemReason());
    struct ::stat found {};
    if (::fstat(file.number(), &found) != 0)
        return systemReason();
    if (!S_ISREG(found.st_mode) && !S_ISDIR(found.st_mode))
        return QStringLiteral("ce n’est pas un fichier");
    std::array<char, 65536> piece{}; // a damaged disk may fail far from the beginning
    ssize_t size = 0;
    do
        size = ::read(file.number(), piece.data(), piece.size());
    while (size > 0 || (size < 0 && errno == EINTR));
    return size == 0 ? std::nullopt : std::optional(systemReason());
}

} // namespace quenoria
