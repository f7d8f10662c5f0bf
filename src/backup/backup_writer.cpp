#include "backup/backup_writer.h"

#include <zip.h>

#include <unistd.h>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr zip_uint32_t quickest = 1; ///< texts like these shrink to an eighth all the same
constexpr qsizetype pieceSize = qsizetype{256} * 1024;

/// An archive that grows in memory, an eighth of the files: a draft on the disk would be left there
/// by a kill.
class Draft {
public:
    Draft()
    {
        zip_error_init(&m_error);
        m_bytes = zip_source_buffer_create(nullptr, 0, 0, &m_error);
        m_archive =
            m_bytes ? zip_open_from_source(m_bytes, ZIP_CREATE | ZIP_TRUNCATE, &m_error) : nullptr;
        if (m_archive)
            zip_source_keep(m_bytes);
    }
    ~Draft()
    {
        if (m_archive)
            zip_discard(m_archive);
        zip_source_free(m_bytes);
        zip_error_fini(&m_error);
    }
    Q_DISABLE_COPY_MOVE(Draft)

    [[nodiscard]] bool add(const QString &name, const QFile &content)
    {
        std::FILE *file = m_archive ? ::fdopen(::dup(content.handle()), "rb") : nullptr;
        if (file)
            std::rewind(file); // it was read before, for the digest
        zip_source_t *source = file ? zip_source_filep(m_archive, file, 0, -1) : nullptr;
        const zip_int64_t place =
            source ? zip_file_add(m_archive, name.toUtf8().constData(), source, 0) : -1;
        if (place >= 0)
            return zip_set_file_compression(m_archive, zip_uint64_t(place), ZIP_CM_DEFLATE,
                                            quickest) == 0;
        if (source)
            zip_source_free(source);
        else if (file)
            std::fclose(file);
        return false;
    }

    [[nodiscard]] bool finish(const QByteArray &comment)
    {
        if (zip_set_archive_comment(m_archive, comment.constData(), zip_uint16_t(comment.size())) !=
                0 ||
            zip_close(m_archive) != 0)
            return false;
        m_archive = nullptr;
        return zip_source_open(m_bytes) == 0;
    }

    QString error()
    {
        zip_error_t *failure = m_archive ? zip_get_error(m_archive) : &m_error;
        return u"l’archive n’a pas pu être faite (%1)."_s.arg(
            QString::fromUtf8(zip_error_strerror(failure)));
    }

    void give(const TakePiece &take) const
    {
        std::vector<char> piece(pieceSize);
        zip_int64_t size = zip_source_read(m_bytes, piece.data(), piece.size());
        for (; size > 0; size = zip_source_read(m_bytes, piece.data(), piece.size()))
            take({piece.data(), std::size_t(size)});
    }

private:
    zip_error_t m_error{};
    zip_source_t *m_bytes = nullptr;
    zip_t *m_archive = nullptr;
};

} // namespace

Refusal writeBackup(const Snapshot &snapshot, const BackupNote &note, const QString &path,
                    FileWriter &files)
{
    Draft draft;
    for (const Snapshot::File &file : snapshot.files()) {
        if (!draft.add(file.name, *file.content))
            return draft.error();
    }
    if (!draft.finish(noteText(note)))
        return draft.error();
    return files.writePieces(path, [&draft](const TakePiece &take) { draft.give(take); });
}

} // namespace quenoria
