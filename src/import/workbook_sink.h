#pragma once

#include "import/worksheet_row.h"

#include <cstdint>
#include <memory>

namespace quenoria {

class SharedStrings;

/// What is known of a workbook before its rows come.
struct WorkbookFrame {
    std::shared_ptr<const SharedStrings> sharedStrings; ///< never null
    std::uint64_t inflatedBytes = 0;                    ///< of the parts that are read
};

/// Receives a workbook's rows as they are read, so that no sheet ever stands in memory as a whole.
class WorkbookSink {
public:
    virtual ~WorkbookSink() = default;

    virtual void beginWorkbook(const WorkbookFrame & /*frame*/) {}
    virtual void beginSheet() = 0;
    virtual void row(const WorksheetRow &row) = 0; ///< in document order, empty ones included
};

} // namespace quenoria
