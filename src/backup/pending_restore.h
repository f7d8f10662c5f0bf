#pragma once

#include "platform/platform.h"
#include "store/refusal.h"

#include <functional>

namespace quenoria {

// A restore stands in a folder of its own beside the data: first the new files, then a mark that it
// was decided. Before the mark the data are as they were; from then on the new files move to their
// places, and the next start goes on where a kill stopped that.

[[nodiscard]] QString restoreFolder(const QString &dataFolder);
[[nodiscard]] QString unpackedFolder(const QString &dataFolder); ///< of the new files

/// Takes the new files away. Not once they were decided on.
void giveUpRestore(const Platform &platform);

/// Sets the mark. No store may write in the data folder from then on.
[[nodiscard]] Refusal decideRestore(const Platform &platform);

/// What a start found and made of it.
struct RestoreEnd {
    bool isCompleted = false; ///< files moved to their places
    Refusal failure;          ///< the system's reason; no store may be made before it is mended
};

/// Puts a file in the place of another one and gives the system's reason when it could not.
using MoveFile = std::function<std::optional<QString>(const QString &from, const QString &to)>;

/// Completes a restore that was decided on, takes away one that was not. No store may live.
[[nodiscard]] RestoreEnd endRestore(const Platform &platform, const MoveFile &move);

} // namespace quenoria
