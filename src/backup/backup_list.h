#pragma once

#include "backup/backup_note.h"
#include "backup/retention.h"

namespace quenoria {

/// "quenoria-2026-08-09T08-45-00Z.zip"
[[nodiscard]] QString backupName(Instant date);

/// The backups of a folder, newest first. What bears another name is none of them.
[[nodiscard]] std::vector<StoredBackup> storedBackups(const QString &folder);

/// What the archive says of itself, found without reading its files. Absent when it says nothing or
/// cannot be read.
[[nodiscard]] std::optional<BackupNote> readNote(const QString &path);

} // namespace quenoria
