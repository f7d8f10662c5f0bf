#pragma once

#include "import/workbook_sink.h"

#include <QString>

#include <optional>

namespace quenoria {

class ContactColumns;

/// How a row below a header ends.
enum class RowEnd { added, duplicate, nameless, unreachable, noDepartment };

struct RowFate {
    RowEnd end;
    QString key;                  ///< under which an import knows the contact; empty when left out
    std::optional<QString> email; ///< that the row gives
};

/// Told what becomes of each row while a workbook is analysed, in document order, on a thread of
/// the analysis. What it throws ends the analysis.
class RowListener {
public:
    virtual ~RowListener() = default;

    virtual void beginWorkbook(const WorkbookFrame &frame) = 0;
    virtual void beginSheet() = 0;
    virtual void header(const WorksheetRow &row, const ContactColumns &columns) = 0;
    virtual void contactRow(const WorksheetRow &row, const ContactColumns &columns,
                            const RowFate &fate) = 0;
};

} // namespace quenoria
