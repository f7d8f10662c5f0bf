#pragma once

#include "import/workbook_sink.h"

#include <QString>

#include <span>
#include <string>
#include <vector>

namespace quenoria {

/// The rows of a workbook that an import leaves out, with their cells as they stood and the reason,
/// each under the header that it stood under. Keeps so many that a hostile workbook takes no more
/// memory than it is worth.
class RejectedRows {
public:
    static constexpr std::size_t mostBytes = 96UL * 1024 * 1024;
    static constexpr std::size_t mostRows = 1'000'000; ///< one sheet has room for them

    void attach(const WorkbookFrame &frame) { m_sharedStrings = frame.sharedStrings; }
    void beginTable(const WorksheetRow &header);
    void add(const WorksheetRow &row, const QString &reason);

    /// Headers and rows, as they are to be written.
    std::size_t lines() const { return m_lines.size() - (m_headerHasRows ? 0 : 1); }
    std::size_t rows() const { return m_rows; }         ///< kept
    std::size_t dropped() const { return m_dropped; }   ///< for want of memory
    std::uint32_t columns() const { return m_columns; } ///< one more than the last used
    bool isHeader(std::size_t line) const { return m_lines[line].isHeader; }
    const QString &reason(std::size_t line) const { return m_lines[line].reason; }

    /// Calls visit(column, text) for each cell, from left to right.
    template <typename Visit>
    void forEachCell(std::size_t line, Visit &&visit) const
    {
        const Line &place = m_lines[line];
        const char *own = m_texts.data() + place.firstText;
        for (const Cell &cell : std::span(m_cells).subspan(place.firstCell, place.cells)) {
            visit(cell.column, std::string_view(cell.shared ? cell.shared : own, cell.size));
            own += cell.shared ? 0 : cell.size;
        }
    }

private:
    struct Cell {
        std::uint32_t column;
        std::uint32_t size;
        const char *shared; ///< of the shared strings; null when the text is of our own
    };
    struct Line {
        std::size_t firstCell;
        std::size_t firstText;
        std::uint32_t cells;
        bool isHeader;
        QString reason;
    };

    void keep(const WorksheetRow &row, bool isHeader, const QString &reason);

    std::shared_ptr<const SharedStrings> m_sharedStrings;
    std::vector<Line> m_lines;
    std::vector<Cell> m_cells;
    std::string m_texts;
    std::size_t m_rows = 0;
    std::size_t m_bytes = 0;
    std::size_t m_dropped = 0;
    std::uint32_t m_columns = 0;
    bool m_headerHasRows = true; ///< false while the last line is a header without rows
};

} // namespace quenoria
