#pragma once

#include <QString>

#include <string>

namespace quenoria {

/// What a search compares: lower case in the user's language, composed, as UTF-8. The separator of
/// texts becomes a byte that no text holds.
///
///   "ÉPICERIE"   -> "épicerie"
///   "e" U+0301   -> "é"
void appendFolded(std::string &out, const QString &text);
[[nodiscard]] std::string foldedForSearch(const QString &text);

} // namespace quenoria
