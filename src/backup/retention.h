#pragma once

#include "model/instant.h"

#include <QString>
#include <QTimeZone>

#include <vector>

namespace quenoria {

/// A backup in the folder of those that the application makes by itself.
struct StoredBackup {
    QString path;
    Instant date;
    qint64 size = 0; ///< bytes
    bool operator==(const StoredBackup &) const = default;
};

/// Those of the backups, newest first, that are to go. Stay: all of the last 7 days, since each was
/// made before something else was lost, then the last one of each of 4 weeks and of 12 months; of
/// these the newest that 500 MB hold, and the newest one in any case.
[[nodiscard]] std::vector<StoredBackup> surplus(const std::vector<StoredBackup> &newestFirst,
                                                Instant now, const QTimeZone &zone);

} // namespace quenoria
