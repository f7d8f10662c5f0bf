// The row on which a file would be dropped.

#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QPainter>

namespace quenoria {

namespace {

constexpr int stroke = 2;
constexpr int rounding = 4;
constexpr float veil = 0.15F; ///< of the accent over the row

} // namespace

void ContactTableView::markDrop(std::optional<QPoint> point)
{
    const QModelIndex index = point ? indexAt(*point) : QModelIndex();
    const QPersistentModelIndex row(index.siblingAtColumn(0));
    if (std::exchange(m_dropRow, row) != row)
        viewport()->update();
}

void ContactTableView::paintDropMark()
{
    if (!m_dropRow.isValid())
        return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    QColor accent = palette().color(QPalette::Highlight);
    painter.setPen(QPen(accent, stroke));
    accent.setAlphaF(veil);
    painter.setBrush(accent);
    const int row = m_dropRow.row();
    const QRect place(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    painter.drawRoundedRect(place.adjusted(stroke, stroke, -stroke, -stroke), rounding, rounding);
}

} // namespace quenoria
