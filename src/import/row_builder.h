#pragma once

#include "import/worksheet_row.h"

#include <string>
#include <vector>

namespace quenoria {

/// Collects the cells of one row after another, in whatever order they come; of several in one
/// column the last counts. Uses its memory again for each row, so that a row costs what it holds
/// and not what its last column is.
class RowBuilder {
public:
    void clear();
    void setShared(std::size_t column, std::string_view text); ///< the text outlives the row
    void setOwn(std::size_t column, std::string_view text);    ///< copies; may refuse the row
    [[nodiscard]] WorksheetRow row(std::uint32_t number);      ///< valid until the next change

private:
    struct Slot {
        std::string_view shared; ///< counts when the cell has no text of its own
        std::string own;

        std::string_view text() const { return own.empty() ? shared : own; }
    };

    Slot &use(std::size_t column);

    std::vector<Slot> m_slots; ///< by column
    std::vector<std::uint32_t> m_columns;
    std::size_t m_ownBytes = 0;
    std::vector<WorksheetCell> m_cells;
};

} // namespace quenoria
