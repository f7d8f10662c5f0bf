#include "backup/pending_restore.h"

#include "backup/backup_files.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString markOf(const QString &dataFolder) { return restoreFolder(dataFolder) + u"/decidee"_s; }

} // namespace

QString restoreFolder(const QString &dataFolder) { return dataFolder + u"/.restauration"_s; }

QString unpackedFolder(const QString &dataFolder)
{
    return restoreFolder(dataFolder) + u"/nouveau"_s;
}

void giveUpRestore(const Platform &platform)
{
    const QString folder = restoreFolder(platform.folders.data());
    if (!QDir(folder).removeRecursively())
        platform.log.write(u"Impossible de retirer « %1 »."_s.arg(folder));
}

Refusal decideRestore(const Platform &platform)
{
    return platform.files.write(markOf(platform.folders.data()), "restauration\n");
}

RestoreEnd endRestore(const Platform &platform, const MoveFile &move)
{
    const QString data = platform.folders.data();
    RestoreEnd end;
    if (QFile::exists(markOf(data))) {
        for (const BackedUpFile &file : backedUpFiles()) {
            const QString from = QDir(unpackedFolder(data)).filePath(file.name);
            if (!QFile::exists(from)) // in its place already
                continue;
            end.failure = move(from, QDir(data).filePath(file.name));
            if (end.failure)
                return end;
            end.isCompleted = true;
        }
    }
    giveUpRestore(platform);
    return end;
}

} // namespace quenoria
