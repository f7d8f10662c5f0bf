#include "import/rejected_rows.h"

namespace quenoria {

/// A header that no row was rejected under gives its place to the next.
void RejectedRows::beginTable(const WorksheetRow &header)
{
    if (!m_headerHasRows) {
        const Line &unused = m_lines.back();
        m_cells.resize(unused.firstCell);
        m_texts.resize(unused.firstText);
        m_lines.pop_back();
    }
    keep(header, true, {});
    m_headerHasRows = false;
}

void RejectedRows::add(const WorksheetRow &row, const QString &reason)
{
    if (m_dropped > 0 || m_rows >= mostRows || m_bytes >= mostBytes) {
        ++m_dropped;
        return;
    }
    keep(row, false, reason);
    m_headerHasRows = true;
    ++m_rows;
}

void RejectedRows::keep(const WorksheetRow &row, bool isHeader, const QString &reason)
{
    m_lines.push_back(
        {m_cells.size(), m_texts.size(), std::uint32_t(row.cells().size()), isHeader, reason});
    const std::size_t textsBefore = m_texts.size();
    for (const WorksheetCell &cell : row.cells()) {
        m_cells.push_back({cell.column, std::uint32_t(cell.text.size()),
                           cell.isShared ? cell.text.data() : nullptr});
        if (!cell.isShared)
            m_texts += cell.text;
    }
    m_columns = std::max(m_columns, std::uint32_t(row.size()));
    m_bytes += sizeof(Line) + row.cells().size() * sizeof(Cell) + m_texts.size() - textsBefore +
               2 * std::size_t(reason.size());
}

} // namespace quenoria
