#pragma once

#include <QString>

namespace quenoria {

/// The id under which a contact was made. Older folders may hold two contacts with one id; of
/// these the later ones got an id of their own by ProspectStore::separateTwins().
///
///   "0639980011"   -> "0639980011"
///   "0639980011#2" -> "0639980011"
[[nodiscard]] QString firstId(const QString &id);
[[nodiscard]] bool isTwin(const QString &id); ///< it got an id of its own

} // namespace quenoria
