#pragma once

#include "import/row_listener.h"

namespace quenoria {

/// Why a row is left out, in the words of its own cells; empty when it is not.
///
///   mobile "02 98 00 00 01", no address -> "Pas de mobile français dans « 02 98 00 00 01 »,
///                                           pas d’adresse e-mail"
[[nodiscard]] QString rejectionOf(RowEnd end, const WorksheetRow &row,
                                  const ContactColumns &columns);

/// A cell for the screen: on one line, its end cut off.
[[nodiscard]] QString shownCell(std::string_view utf8);

} // namespace quenoria
