#pragma once

#include <QString>

#include <vector>

namespace quenoria {

/// A file of the data folder that a backup holds.
struct BackedUpFile {
    QString name;
    bool isAlwaysThere; ///< once the application has run; the others come with their first record
};

/// The thirteen files and the list of those who are not to be contacted.
[[nodiscard]] std::vector<BackedUpFile> backedUpFiles();

/// Where the backups are that the application makes by itself.
[[nodiscard]] QString backupFolder(const QString &dataFolder);

} // namespace quenoria
