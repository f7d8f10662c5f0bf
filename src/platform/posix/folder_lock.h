#pragma once

#include "platform/posix/descriptor.h"

#include <QString>

#include <functional>
#include <variant>

namespace quenoria {

/// The kernel's lock on a folder, which ends with the process that holds it, however it ends. It is
/// held on a file in the folder that is never removed: a removed one could be locked twice.
class FolderLock {
public:
    struct Held {};
    struct HeldByAnother {};
    struct NoLocks {}; ///< on this file system
    struct Failed {
        QString reason; ///< the system's
    };
    using Outcome = std::variant<Held, HeldByAnother, NoLocks, Failed>;

    /// What locks an open file as flock() does; tests stand in for a file system with another.
    using LockFile = std::function<int(int file, int operation)>;

    FolderLock();
    explicit FolderLock(LockFile lockFile) : m_lockFile(std::move(lockFile)) {}

    /// Does not wait. The folder must be there.
    [[nodiscard]] Outcome take(const QString &folder);

private:
    LockFile m_lockFile;
    Descriptor m_file;
};

} // namespace quenoria
