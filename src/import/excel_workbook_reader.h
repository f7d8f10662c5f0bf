#pragma once

#include "import/import_watch.h"
#include "import/workbook_sink.h"

#include <QString>

namespace quenoria {

/// Reads the texts of an .xlsx workbook: what a cell's value element, inline string or shared
/// string holds. Evaluates no formula, formats no number, converts no date.
class ExcelWorkbookReader {
public:
    /// The sheets in the order of their file names, hidden ones included. Throws a ReaderError,
    /// ImportAbandoned or what the sink threw, possibly after some rows.
    static void readSheets(const QString &path, WorkbookSink &sink, const ImportWatch &watch = {});
};

} // namespace quenoria
