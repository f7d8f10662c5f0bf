#pragma once

#include <QDir>
#include <QFileInfo>

namespace quenoria {

/// Makes the folder, unless it exists, so that nobody but the user looks inside; the folders
/// above it are made as the system makes them.
inline void makePrivateFolder(const QString &path)
{
    QDir().mkpath(QFileInfo(path).path());
    QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace quenoria
