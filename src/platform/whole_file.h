#pragma once

#include "model/pieces.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace quenoria {

/// Gives the pieces of one file.
using GivePieces = std::function<void(const TakePiece &take)>;

/// Writes every file that the program writes: afterwards it is whole and on the disk, or it is as
/// it was before. What it makes is for the user alone. May be called from any thread.
class FileWriter {
public:
    virtual ~FileWriter() = default;

    /// Puts the pieces in place of the file, in a folder that must be there. Gives the system's
    /// reason when it could not.
    [[nodiscard]] virtual std::optional<QString> writePieces(const QString &path,
                                                             const GivePieces &give) = 0;

    /// Makes the folder, unless it is there, and those above it. Gives the system's reason when it
    /// could not.
    [[nodiscard]] virtual std::optional<QString> makeFolder(const QString &path) = 0;

    [[nodiscard]] std::optional<QString> write(const QString &path, QByteArrayView content)
    {
        return writePieces(path, [content](const TakePiece &take) {
            take({content.data(), std::size_t(content.size())});
        });
    }
};

} // namespace quenoria
