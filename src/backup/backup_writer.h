#pragma once

#include "backup/snapshot.h"
#include "platform/whole_file.h"

namespace quenoria {

/// Puts the files of a snapshot into one archive, which is whole afterwards or as it was before.
/// Gives the reason when it could not. On any thread, one at a time.
[[nodiscard]] Refusal writeBackup(const Snapshot &snapshot, const BackupNote &note,
                                  const QString &path, FileWriter &files);

} // namespace quenoria
