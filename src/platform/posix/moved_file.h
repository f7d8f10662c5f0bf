#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// Puts the file in the place of another one, or of none, also behind a link: at every moment one
/// of the two stands there, and afterwards it is on the disk. Gives the system's reason when it
/// could not.
[[nodiscard]] std::optional<QString> moveFile(const QString &from, const QString &to);

} // namespace quenoria
