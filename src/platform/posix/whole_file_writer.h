#pragma once

#include "platform/whole_file.h"

#include <QByteArray>

#include <map>
#include <mutex>

namespace quenoria {

/// Writes to a temporary file beside the target, syncs it, renames it and syncs the folder. A
/// folder that was there once is not made again: it was taken away, maybe with the disk that it
/// stands on.
class WholeFileWriter : public FileWriter {
public:
    [[nodiscard]] std::optional<QString> writePieces(const QString &path,
                                                     const GivePieces &give) override;
    [[nodiscard]] std::optional<QString> makeFolder(const QString &path) override;

    /// Removes the temporary files that a killed writer left; nobody may be writing there.
    static void removeLeftovers(const QString &folder);

private:
    bool isElsewhere(const QByteArray &folder, const QByteArray &target);

    std::mutex m_mutex;
    std::map<QByteArray, unsigned long> m_devices; ///< of the folders that were asked for
};

} // namespace quenoria
