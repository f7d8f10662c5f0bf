#include "backup/backup_archive.h"

#include "backup/backup_files.h"
#include "backup/unrestorable.h"
#include "import/archive_file.h"
#include "import/import_error.h"
#include "model/json_decode.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr quint64 mostBytes =
    1024ULL * 1024 * 1024; ///< inflated: ten times what 100,000 contacts take
constexpr std::size_t pieceSize = 256UL * 1024;

const QString noBackup = u"Ce fichier n’est pas une sauvegarde de Quenoria."_s;
const QString damaged = u"Cette sauvegarde est endommagée : elle n’a pas pu être lue en entier."_s;
const QString tooLarge = u"Cette sauvegarde est trop volumineuse pour être lue."_s;
const QString incomplete = u"Cette sauvegarde est incomplète : il y manque « %1 »."_s;

bool canBeRead(const zip_stat_t &entry)
{
    return (entry.comp_method == ZIP_CM_STORE || entry.comp_method == ZIP_CM_DEFLATE) &&
           entry.encryption_method == ZIP_EM_NONE;
}

} // namespace

struct BackupArchive::Opened {
    ArchiveFile file; ///< outlives the archive
    std::unique_ptr<zip_t, void (*)(zip_t *)> archive;

    Opened(const QString &path, std::stop_token stop)
        : file(path, std::move(stop)), archive(file.openArchive(), &zip_discard)
    {
    }
};

BackupArchive::BackupArchive(const QString &path, std::stop_token stop)
{
    try {
        m_opened = std::make_unique<Opened>(path, std::move(stop));
    } catch (const ImportFailure &) {
        throw Unrestorable{noBackup};
    } catch (const ImportAbandoned &) {
        throw Unrestorable{};
    }
    int length = 0;
    if (const char *text =
            zip_get_archive_comment(m_opened->archive.get(), &length, ZIP_FL_ENC_RAW))
        m_note = noteFromText({text, length});
    findParts();
    requireParts();
}

BackupArchive::~BackupArchive() = default;

void BackupArchive::findParts()
{
    const std::vector<BackedUpFile> known = backedUpFiles();
    zip_t *archive = m_opened->archive.get();
    const auto count = zip_uint64_t(zip_get_num_entries(archive, 0));
    if (count > known.size())
        throw Unrestorable{noBackup};
    quint64 total = 0;
    for (zip_uint64_t index = 0; index < count; ++index) {
        zip_stat_t entry;
        if (zip_stat_index(archive, index, 0, &entry) != 0)
            throw Unrestorable{noBackup};
        const QString name = QString::fromUtf8(entry.name);
        if (std::ranges::find(known, name, &BackedUpFile::name) == known.end() || holds(name))
            throw Unrestorable{noBackup};
        if (!canBeRead(entry))
            throw Unrestorable{damaged};
        total +=
            std::min<quint64>(entry.size, mostBytes + 1); // declared: the sum must not turn over
        m_parts[name] = {index, entry.size, entry.crc};
    }
    if (total > mostBytes)
        throw Unrestorable{tooLarge};
}

/// One without its STOPs, say, would bring contacts back that want no message.
void BackupArchive::requireParts() const
{
    if (m_parts.empty())
        throw Unrestorable{noBackup};
    for (const BackedUpFile &each : backedUpFiles()) {
        if (each.isAlwaysThere && !holds(each.name))
            throw Unrestorable{incomplete.arg(each.name)};
    }
}

std::pair<quint64, quint32> BackupArchive::fingerprint(const QString &name) const
{
    const auto found = m_parts.find(name);
    return found == m_parts.end() ? std::pair<quint64, quint32>()
                                  : std::pair(found->second.size, found->second.checksum);
}

void BackupArchive::read(const QString &name, const TakePiece &take) const
{
    const Part &part = m_parts.at(name);
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t *)> file(
        zip_fopen_index(m_opened->archive.get(), part.index, 0), &zip_fclose);
    if (!file)
        throw Unrestorable{damaged};
    std::vector<char> piece(pieceSize);
    quint64 left = part.size;
    for (;;) {
        const zip_int64_t count = zip_fread(file.get(), piece.data(), piece.size());
        if (count < 0 || quint64(count) > left)
            throw Unrestorable{damaged};
        if (count == 0)
            break;
        left -= quint64(count);
        take({piece.data(), std::size_t(count)});
    }
    if (left != 0)
        throw Unrestorable{damaged};
}

QByteArray BackupArchive::bytes(const QString &name) const
{
    QByteArray all;
    read(name,
         [&all](std::string_view piece) { all.append(piece.data(), qsizetype(piece.size())); });
    all.reserve(all.size() + jsonReadAhead);
    return all;
}

} // namespace quenoria
