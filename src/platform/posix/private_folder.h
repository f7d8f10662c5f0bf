#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quenoria {

/// Whether the folder is there and belongs to another user, who could read what is put into it.
[[nodiscard]] bool belongsToAnother(const QString &folder);

/// Closes the folder and the user's own files of those names in it to everybody else, as far as the
/// file system can. True when something stood open.
bool closeToOthers(const QString &folder, const QStringList &names);

/// Why a file that is there cannot be opened and read, in the system's words: it may be whole, and
/// must be left alone. Absent when it can, or when there is none.
[[nodiscard]] std::optional<QString> unreadable(const QString &path);

} // namespace quenoria
