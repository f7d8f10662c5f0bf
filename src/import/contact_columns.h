#pragma once

#include "import/header_text.h"
#include "import/worksheet_row.h"

#include <QString>

#include <array>
#include <optional>

namespace quenoria {

/// Where each role stands in the rows below a header.
class ContactColumns {
public:
    /// Of several columns of one role the first counts.
    static ContactColumns of(const WorksheetRow &row);

    bool makeHeader() const
    {
        return find(ColumnRole::name) && (find(ColumnRole::mobile) || find(ColumnRole::email));
    }

    std::optional<std::size_t> find(ColumnRole role) const
    {
        return m_positions[std::size_t(role)];
    }

    /// The cell as it stands, empty without such a column. cell() refuses what is too long for a
    /// contact.
    std::string_view rawCell(const WorksheetRow &row, ColumnRole role) const
    {
        const auto column = find(role);
        return column ? row[*column] : std::string_view();
    }
    std::string_view cell(const WorksheetRow &row, ColumnRole role) const;

    QString text(const WorksheetRow &row, ColumnRole role) const; ///< trimmed

private:
    std::array<std::optional<std::size_t>, std::size_t(ColumnRole::profession) + 1> m_positions;
};

} // namespace quenoria
