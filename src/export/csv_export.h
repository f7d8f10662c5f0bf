#pragma once

#include "export/export_table.h"
#include "import/import_watch.h"
#include "platform/whole_file.h"
#include "store/refusal.h"

namespace quenoria {

/// One text as a field of a file that a French spreadsheet opens with a double click. A text of
/// which it would make a formula or a number begins with a tabulator, which keeps it a text and
/// which an import trims.
///
///   "a;b"      -> "\"a;b\""
///   "=1+1"     -> "\"\t=1+1\""
///   "00331234" -> "\"\t00331234\""
[[nodiscard]] QString csvField(const QString &text);

/// Writes UTF-8 with its mark, fields parted by semicolons. Throws ImportAbandoned.
[[nodiscard]] Refusal writeCsv(const ExportTable &table, const QString &path, FileWriter &files,
                               const ImportWatch &watch);

} // namespace quenoria
