#include "backup/backup_list.h"

#include "import/archive_file.h"
#include "import/import_error.h"

#include <QDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString stem = u"quenoria-"_s;
const QString suffix = u".zip"_s;
constexpr qsizetype dayLength = 10;

std::optional<Instant> dateOf(const QString &name)
{
    if (name.size() != stem.size() + instantTextLength + suffix.size())
        return std::nullopt;
    const QString day = name.sliced(stem.size(), dayLength);
    const QString hour = name.sliced(stem.size() + dayLength).chopped(suffix.size());
    return instantFromText((day + QString(hour).replace(u'-', u':')).toLatin1());
}

} // namespace

QString backupName(Instant date)
{
    return stem + QString::fromLatin1(instantText(date)).replace(u':', u'-') + suffix;
}

std::vector<StoredBackup> storedBackups(const QString &folder)
{
    constexpr auto order = QDir::Name | QDir::Reversed;
    std::vector<StoredBackup> backups;
    for (const QFileInfo &file :
         QDir(folder).entryInfoList({stem + u'*' + suffix}, QDir::Files, order)) {
        if (const auto date = dateOf(file.fileName()))
            backups.push_back({file.filePath(), *date, file.size()});
    }
    return backups;
}

std::optional<BackupNote> readNote(const QString &path)
{
    try {
        ArchiveFile file(path, {});
        const std::unique_ptr<zip_t, void (*)(zip_t *)> archive(file.openArchive(), &zip_discard);
        int length = 0;
        const char *comment = zip_get_archive_comment(archive.get(), &length, ZIP_FL_ENC_RAW);
        return comment ? noteFromText({comment, length}) : std::nullopt;
    } catch (const ImportFailure &) {
        return std::nullopt;
    }
}

} // namespace quenoria
