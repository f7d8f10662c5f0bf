#pragma once

#include "backup/backup_archive.h"
#include "platform/platform.h"

namespace quenoria {

class ProspectStore;

/// A backup unpacked in a folder of its own beside the data, and read there as a start would read
/// it. Gone with this object unless it is kept.
class UnpackedBackup {
public:
    /// Throws an Unrestorable. Created, used and destroyed on one thread, whichever.
    UnpackedBackup(const BackupArchive &archive, const Platform &platform);
    ~UnpackedBackup();
    UnpackedBackup(const UnpackedBackup &) = delete;
    UnpackedBackup &operator=(const UnpackedBackup &) = delete;

    ProspectStore &store() const { return *m_store; }

    /// Leaves the folder, complete: a file that the backup has not, but the data have, is there and
    /// empty. Throws an Unrestorable.
    void keep();

private:
    struct Aside;

    void unpack(const BackupArchive &archive) const;

    Platform m_platform;
    std::unique_ptr<Aside> m_aside;
    std::unique_ptr<ProspectStore> m_store;
    bool m_isKept = false;
};

} // namespace quenoria
