#pragma once

#include <QString>

namespace quenoria {

/// Whether a received text asks for no more messages: it begins with the word STOP, however it is
/// written and whatever signs stand before it.
///
///   "« Stop » svp" -> true
///   "STOP36180"    -> true
///   "Stoppeur"     -> false
///   "non stop"     -> false
[[nodiscard]] bool asksToStop(const QString &text);

} // namespace quenoria
