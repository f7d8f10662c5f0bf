#pragma once

#include <QStringList>

namespace quenoria {

/// The lines of a text whose line ends may be CRLF, CR or LF; an empty text is one empty line.
[[nodiscard]] QStringList linesOf(QString text);

} // namespace quenoria
