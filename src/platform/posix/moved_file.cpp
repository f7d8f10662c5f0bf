#include "platform/posix/moved_file.h"

#include "platform/posix/descriptor.h"
#include "platform/posix/whole_file_writer.h"
#include "platform/system_reason.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

#include <cerrno>
#include <cstdio>

namespace quenoria {

namespace {

/// To another disk, where the link leads: the writer follows it as well.
std::optional<QString> copyFile(const QString &from, const QString &to)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        return systemReason(source.errorString());
    const QByteArray content = source.readAll();
    if (source.error() != QFileDevice::NoError)
        return systemReason(source.errorString());
    auto failure = WholeFileWriter().write(to, content);
    if (!failure)
        source.remove();
    return failure;
}

} // namespace

std::optional<QString> moveFile(const QString &from, const QString &to)
{
    const QFileInfo place(to);
    const QString real = place.isSymLink() && place.exists() ? place.canonicalFilePath() : to;
    const QByteArray folderPath = QFile::encodeName(QFileInfo(real).absolutePath());
    const Descriptor folder(::open(folderPath.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return systemReason();
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(real).constData()) != 0)
        return errno == EXDEV ? copyFile(from, to) : systemReason();
    if (::fsync(folder.number()) != 0 && errno != EINVAL) // which some file systems cannot
        return systemReason();
    return {};
}

} // namespace quenoria
