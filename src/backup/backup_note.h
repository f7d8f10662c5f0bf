#pragma once

#include "model/instant.h"

#include <QByteArray>

#include <optional>

namespace quenoria {

/// What a backup says of itself, in the archive's comment.
struct BackupNote {
    Instant date;
    qint64 contacts = 0;
    qint64 sends = 0;
    QByteArray digest; ///< of the files: equal digests are equal files
    bool operator==(const BackupNote &) const = default;
};

/// One line each: "Quenoria", date, contacts, sends, digest.
[[nodiscard]] QByteArray noteText(const BackupNote &note);
[[nodiscard]] std::optional<BackupNote> noteFromText(const QByteArray &text);

} // namespace quenoria
