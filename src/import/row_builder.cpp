#include "import/row_builder.h"

namespace quenoria {

void RowBuilder::clear()
{
    for (const std::size_t column : m_columns) {
        m_slots[column].own.clear();
        m_slots[column].shared = {};
    }
    m_columns.clear();
}

void RowBuilder::setShared(std::size_t column, std::string_view text)
{
    Slot &slot = use(column);
    slot.own.clear();
    slot.shared = text;
}

void RowBuilder::setOwn(std::size_t column, std::string_view text) { use(column).own = text; }

RowBuilder::Slot &RowBuilder::use(std::size_t column)
{
    if (column >= m_slots.size())
        m_slots.resize(column + 1);
    Slot &slot = m_slots[column];
    if (slot.text().empty())
        m_columns.push_back(column);
    return slot;
}

WorksheetRow RowBuilder::row()
{
    if (!std::ranges::is_sorted(m_columns))
        std::ranges::sort(m_columns);
    m_cells.clear();
    for (const std::size_t column : m_columns)
        m_cells.push_back({column, m_slots[column].text()});
    return WorksheetRow(m_cells);
}

} // namespace quenoria
