#include "import/contact_columns.h"

#include "import/reader_limits.h"

namespace quenoria {

ContactColumns ContactColumns::of(const WorksheetRow &row)
{
    ContactColumns columns;
    for (const WorksheetCell &cell : row.cells()) {
        if (const auto role = columnRole(cell.text); role && !columns.find(*role))
            columns.m_positions[std::size_t(*role)] = cell.column;
    }
    return columns;
}

std::string_view ContactColumns::cell(const WorksheetRow &row, ColumnRole role) const
{
    const std::string_view text = rawCell(row, role);
    readerLimits::contactCellBytes.check(text.size());
    return text;
}

QString ContactColumns::text(const WorksheetRow &row, ColumnRole role) const
{
    const std::string_view utf8 = cell(row, role);
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size())).trimmed();
}

} // namespace quenoria
