#pragma once

#include "backup/backup_note.h"
#include "model/pieces.h"

#include <QString>

#include <map>
#include <memory>
#include <stop_token>

namespace quenoria {

/// A backup to be read: whoever made the archive, it is one only if it holds the files of a backup
/// and nothing else. Every failure is an Unrestorable.
class BackupArchive {
public:
    /// Reads the archive's directory alone. Once the stop is requested, every reading fails.
    explicit BackupArchive(const QString &path, std::stop_token stop = {});
    ~BackupArchive();
    BackupArchive(const BackupArchive &) = delete;
    BackupArchive &operator=(const BackupArchive &) = delete;

    const std::optional<BackupNote> &note() const { return m_note; }
    bool holds(const QString &name) const { return m_parts.contains(name); }

    /// Size and checksum of a file, as the archive declares them: those of equal files are equal.
    std::pair<quint64, quint32> fingerprint(const QString &name) const;

    /// Gives the file's bytes. It has been whole only once this returns.
    void read(const QString &name, const TakePiece &take) const;
    QByteArray bytes(const QString &name) const; ///< for the decoder

private:
    struct Part {
        quint64 index = 0;
        quint64 size = 0; ///< inflated, as the archive declares it
        quint32 checksum = 0;
    };
    struct Opened;

    void findParts();
    void requireParts() const;

    std::unique_ptr<Opened> m_opened;
    std::map<QString, Part> m_parts;
    std::optional<BackupNote> m_note;
};

} // namespace quenoria
