#pragma once

#include "import/worksheet_row.h"

namespace quenoria {

/// Receives a workbook's rows as they are read, so that no sheet ever stands in memory as a whole.
class WorkbookSink {
public:
    virtual ~WorkbookSink() = default;

    virtual void beginSheet() = 0;
    virtual void row(const WorksheetRow &row) = 0; ///< in document order, empty ones included
};

} // namespace quenoria
