#pragma once

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace quenoria::bench {

/// What putting the bytes in the place of a file costs at least, both syncs included.
inline void writeSynced(const QString &path, const QByteArray &bytes)
{
    const QByteArray target = QFile::encodeName(path);
    const QByteArray temporary = target + ".floor";
    const int file = ::open(temporary.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const int folder = ::open(QFile::encodeName(QFileInfo(path).path()).constData(),
                              O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (::write(file, bytes.constData(), std::size_t(bytes.size())) != bytes.size() ||
        ::fsync(file) != 0 || ::rename(temporary.constData(), target.constData()) != 0 ||
        ::fsync(folder) != 0)
        std::fputs("the floor could not write\n", stderr);
    ::close(file);
    ::close(folder);
}

} // namespace quenoria::bench
