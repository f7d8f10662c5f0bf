#pragma once

#include <QByteArray>
#include <QString>

namespace quenoria {

/// A text as the value of a header of at most nine characters (": " included): plain where every
/// reader gives back the same text, else in encoded words of UTF-8 that never split a character,
/// folded so that no line passes 78 characters. Begins with a blank and ends with a line feed.
///
///   "Offre de mars" -> " Offre de mars\n"
///   "Été"           -> " =?utf-8?B?w4l0w6k=?=\n"
[[nodiscard]] QByteArray headerText(const QString &text);

} // namespace quenoria
