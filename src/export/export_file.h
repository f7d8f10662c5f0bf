#pragma once

#include "export/export_table.h"
#include "import/import_watch.h"
#include "platform/whole_file.h"
#include "store/refusal.h"

namespace quenoria {

enum class ExportFormat { workbook, csv };

/// What became of an export.
struct ExportOutcome {
    Refusal failure; ///< the system's reason; what stood at the path still stands there
    bool stopped = false;
    std::size_t rows = 0;     ///< written
    std::size_t cutTexts = 0; ///< longer than a cell of a spreadsheet may be
};

/// Where a table goes.
struct ExportTarget {
    QString path;
    ExportFormat format;
};

/// Writes a table to a file, which is whole afterwards or as it was before. On any thread.
[[nodiscard]] ExportOutcome writeExport(const ExportTable &table, const ExportTarget &target,
                                        FileWriter &files, const ImportWatch &watch = {});

} // namespace quenoria
