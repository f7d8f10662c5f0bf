#include "backup/backup_files.h"

#include "store/collection.h"
#include "store/do_not_contact.h"

using namespace Qt::StringLiterals;

namespace quenoria {

std::vector<BackedUpFile> backedUpFiles()
{
    std::vector<BackedUpFile> files;
    for (const CollectionDescriptor &each : collections())
        files.push_back({QString::fromUtf16(each.fileName), each.startUpWrites});
    files.push_back({QString::fromUtf16(DoNotContact::fileName), false});
    return files;
}

QString backupFolder(const QString &dataFolder) { return dataFolder + u"/Sauvegardes"_s; }

} // namespace quenoria
