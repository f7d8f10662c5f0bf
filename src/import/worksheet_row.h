#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

namespace quenoria {

/// One cell that holds a text, in UTF-8.
struct WorksheetCell {
    std::uint32_t column = 0; ///< from 0, which is column A
    bool isShared = false;    ///< the text lives as long as the workbook's shared strings
    std::string_view text;
};

/// One row as its reader is handed it: the cells that hold a text, from left to right. It and its
/// texts live until that call returns, shared texts longer.
class WorksheetRow {
public:
    WorksheetRow(std::span<const WorksheetCell> cells, std::uint32_t number)
        : m_cells(cells), m_number(number)
    {
    }

    /// As a spreadsheet shows it, from 1. Counted on where the file does not say it.
    std::uint32_t number() const { return m_number; }

    std::span<const WorksheetCell> cells() const { return m_cells; }

    /// The text in a column, empty when there is none.
    std::string_view operator[](std::size_t column) const
    {
        if (column < m_cells.size() && m_cells[column].column == column) // no gap before it
            return m_cells[column].text;
        const auto found = std::ranges::lower_bound(m_cells, column, {}, &WorksheetCell::column);
        return found != m_cells.end() && found->column == column ? found->text : std::string_view();
    }

    /// One more than the last column that holds a text.
    std::size_t size() const { return m_cells.empty() ? 0 : m_cells.back().column + 1UL; }

private:
    std::span<const WorksheetCell> m_cells;
    std::uint32_t m_number;
};

} // namespace quenoria
