#include "import/row_builder.h"

#include "import/reader_limits.h"

namespace quenoria {

void RowBuilder::clear()
{
    constexpr std::size_t mostKept = 1024; // in each of many columns
    for (const std::uint32_t column : m_columns) {
        Slot &slot = m_slots[column];
        slot.own.clear();
        if (slot.own.capacity() > mostKept)
            slot.own.shrink_to_fit();
        slot.shared = {};
    }
    m_columns.clear();
    m_ownBytes = 0;
}

void RowBuilder::setShared(std::size_t column, std::string_view text)
{
    Slot &slot = use(column);
    slot.own.clear();
    slot.shared = text;
}

void RowBuilder::setOwn(std::size_t column, std::string_view text)
{
    m_ownBytes += text.size();
    readerLimits::rowBytes.check(m_ownBytes);
    use(column).own = text;
}

RowBuilder::Slot &RowBuilder::use(std::size_t column)
{
    if (column >= m_slots.size())
        m_slots.resize(column + 1);
    Slot &slot = m_slots[column];
    if (slot.text().empty())
        m_columns.push_back(std::uint32_t(column));
    return slot;
}

WorksheetRow RowBuilder::row(std::uint32_t number)
{
    if (!std::ranges::is_sorted(m_columns))
        std::ranges::sort(m_columns);
    m_cells.clear();
    for (const std::uint32_t column : m_columns) {
        const Slot &slot = m_slots[column];
        m_cells.push_back({column, slot.own.empty(), slot.text()});
    }
    return {m_cells, number};
}

} // namespace quenoria
