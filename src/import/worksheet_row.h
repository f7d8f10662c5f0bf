#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quenoria {

/// The cells of one row. Emptied and filled again for each row, so that a row costs what it holds
/// and not what its last column is.
class WorksheetRow {
public:
    /// Last column of the file format: XFD.
    static constexpr std::size_t columnLimit = 16'384;

    /// The cell's text in UTF-8, empty when there is none; valid until the next row.
    std::string_view operator[](std::size_t column) const
    {
        return column < m_cells.size() ? m_cells[column].text() : std::string_view();
    }

    /// Columns that hold a text, from left to right.
    std::span<const std::size_t> columns() const { return m_columns; }

    /// One more than the last column that holds a text.
    std::size_t size() const { return m_columns.empty() ? 0 : m_columns.back() + 1; }

private:
    friend class WorksheetXMLParser;

    struct Cell {
        std::string_view shared; ///< of the shared strings, when the cell has no text of its own
        std::string own;

        std::string_view text() const { return own.empty() ? shared : own; }
    };

    void setShared(std::size_t column, std::string_view text)
    {
        Cell &cell = use(column);
        cell.own.clear();
        cell.shared = text;
    }

    void setOwn(std::size_t column, std::string_view text) { use(column).own = text; }

    Cell &use(std::size_t column)
    {
        if (column >= m_cells.size())
            m_cells.resize(column + 1);
        Cell &cell = m_cells[column];
        if (cell.text().empty())
            m_columns.push_back(column);
        return cell;
    }

    void close()
    {
        if (!std::ranges::is_sorted(m_columns))
            std::ranges::sort(m_columns);
    }

    void clear()
    {
        for (const std::size_t column : m_columns) {
            m_cells[column].own.clear();
            m_cells[column].shared = {};
        }
        m_columns.clear();
    }

    std::vector<Cell> m_cells; ///< by column
    std::vector<std::size_t> m_columns;
};

} // namespace quenoria
