#pragma once

#include <QCollator>
#include <QString>

namespace quenoria {

/// The locale for comparing and showing texts: the user's when it is a real one, else French,
/// since the C locale knows neither accents nor numbers inside names.
[[nodiscard]] QLocale displayLocale();

/// The order of a file browser: letters without regard to case, digits compared by their value,
/// so that "CLIENT 2" comes before "CLIENT 10".
[[nodiscard]] const QCollator &finderOrder();

/// Dictionary order of the locale without regard to case; digits are ordinary characters.
[[nodiscard]] const QCollator &dictionaryOrder();

} // namespace quenoria
