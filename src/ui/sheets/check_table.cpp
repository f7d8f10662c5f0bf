#include "ui/sheets/check_table.h"

#include "ui/sheets/check_model.h"

#include <QHeaderView>

#include <array>

namespace quenoria {

namespace {

constexpr int rowPadding = 12;
constexpr int rowsInSight = 4;                      ///< at least
constexpr std::array widths{8, 60, 24, 18, 28, 24}; ///< in letters
static_assert(widths.size() == CheckModel::columns);

} // namespace

CheckTable::CheckTable(CheckModel &model)
{
    setModel(&model);
    setAccessibleName(QStringLiteral("Lignes du classeur"));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    const int rowHeight = fontMetrics().height() + rowPadding;
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(rowHeight);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(rowHeight);
    for (std::size_t column = 0; column < widths.size(); ++column)
        setColumnWidth(int(column), widths[column] * fontMetrics().averageCharWidth());
    setMinimumHeight(rowHeight * (1 + rowsInSight) + 2 * frameWidth());
}

} // namespace quenoria
