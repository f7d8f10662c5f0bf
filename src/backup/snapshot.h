#pragma once

#include "backup/backup_note.h"
#include "store/refusal.h"

#include <QFile>

#include <memory>
#include <vector>

namespace quenoria {

class ProspectStore;
struct Platform;

/// The files of the data folder as they are at one moment. They are held open, since a change puts
/// another file in the place of one and leaves the old one to those who read it: taking a snapshot
/// costs no copy, and any thread may read it afterwards.
class Snapshot {
public:
    struct File {
        QString name;
        std::unique_ptr<QFile> content;
    };

    /// On the store's thread.
    Snapshot(const ProspectStore &store, const Platform &platform);

    /// Why there is nothing to back up, in the user's words.
    const Refusal &failure() const { return m_failure; }
    const std::vector<File> &files() const { return m_files; }
    Instant date() const { return m_note.date; }

    /// Reads every file to its end for the digest.
    [[nodiscard]] BackupNote note() const;

private:
    std::vector<File> m_files;
    Refusal m_failure;
    BackupNote m_note; ///< without the digest
};

} // namespace quenoria
