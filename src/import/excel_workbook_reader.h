#pragma once

#include "import/import_watch.h"
#include "import/worksheet_row.h"

#include <QString>

namespace quenoria {

/// Receives a workbook's rows as they are read, so that no sheet ever stands in memory as a whole.
class WorkbookSink {
public:
    virtual ~WorkbookSink() = default;

    virtual void beginSheet() = 0;
    virtual void row(const WorksheetRow &row) = 0; ///< in document order, empty ones included
};

/// Reads the texts of an .xlsx workbook: what a cell's value element, inline string or shared
/// string holds. Evaluates no formula, formats no number, converts no date.
class ExcelWorkbookReader {
public:
    /// The sheets in the order of their file names, hidden ones included. Throws a ReaderError,
    /// ImportAbandoned or what the sink threw, possibly after some rows.
    static void readSheets(const QString &path, WorkbookSink &sink, const ImportWatch &watch = {});
};

} // namespace quenoria
