#pragma once

#include "import/workbook_check.h"

namespace quenoria {

/// A choice of rows: its text, with how many there are, and the ends that it shows.
struct CheckedChoice {
    QString text;
    std::vector<CheckedEnd> ends;
};

/// All rows, then each kind of which there is one.
[[nodiscard]] std::vector<CheckedChoice> choicesOf(const WorkbookCheck &check);

/// Which columns are read, under which titles, and which are not.
[[nodiscard]] QString headersInWords(const WorkbookCheck &check);

/// "1 nouveau(x) contact(s), 0 adresse(s) e-mail, 0 déjà présent(s), 2 rejetée(s)."
[[nodiscard]] QString countsInWords(const WorkbookCheck &check);

} // namespace quenoria
