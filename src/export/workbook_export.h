#pragma once

#include "export/export_table.h"
#include "import/import_watch.h"
#include "platform/whole_file.h"
#include "store/refusal.h"

namespace quenoria {

/// Writes an .xlsx workbook: texts as texts whatever they begin with, moments as dates, a header
/// that stays in sight. Counts the texts that had to be cut. Throws ImportAbandoned.
[[nodiscard]] Refusal writeWorkbook(const ExportTable &table, const QString &path,
                                    FileWriter &files, const ImportWatch &watch,
                                    std::size_t &cutTexts);

} // namespace quenoria
