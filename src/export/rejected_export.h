#pragma once

#include "export/export_table.h"
#include "import/rejected_rows.h"

#include <memory>

namespace quenoria {

/// The rows that an import left out, under the headers and in the columns of their workbook, with
/// the reason in a column "Motif" that no import reads: corrected, they can be imported again.
[[nodiscard]] ExportTable rejectedTable(std::shared_ptr<const RejectedRows> rows);

} // namespace quenoria
