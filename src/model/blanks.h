#pragma once

#include <QStringList>

namespace quenoria {

/// What a text leaves to be filled in, each once, in order.
///
///   "Bonjour, [votre nom] de [votre entreprise]" -> "[votre nom]", "[votre entreprise]"
///   "[]", "[x\ny]"                               -> nothing
[[nodiscard]] QStringList blanksIn(const QString &text);

} // namespace quenoria
