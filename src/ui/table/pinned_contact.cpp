#include "ui/table/contact_header.h"
#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

namespace quenoria {

namespace {

int contactColumn() { return columnOf(SortColumn::name); }
constexpr int widestPinned = 260;

} // namespace

int ContactTableView::pinnedWidth() const
{
    const bool hasLeft = columnViewportPosition(contactColumn()) < 0;
    return hasLeft ? qMin(widestPinned, columnWidth(contactColumn())) : 0;
}

// The pinned cell is the contact's own cell at another place. Whatever goes by these three -- the
// mouse, the keyboard, tool tips, a screen reader -- needs to know nothing of it.

QModelIndex ContactTableView::indexAt(const QPoint &point) const
{
    if (point.x() < 0 || point.x() >= pinnedWidth())
        return QTableView::indexAt(point);
    return m_model.index(rowAt(point.y()), contactColumn());
}

QRect ContactTableView::visualRect(const QModelIndex &index) const
{
    QRect rect = QTableView::visualRect(index);
    const int width = pinnedWidth();
    if (width > 0 && index.column() == contactColumn()) {
        rect.setLeft(0);
        rect.setWidth(width);
    }
    return rect;
}

void ContactTableView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int sideways = horizontalScrollBar()->value();
    const bool isPinned = pinnedWidth() > 0 && index.column() == contactColumn();
    QTableView::scrollTo(index, hint);
    if (isPinned)
        return horizontalScrollBar()->setValue(sideways);
    const int covered = pinnedWidth() - columnViewportPosition(index.column());
    if (index.column() > contactColumn() && covered > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

/// Scrolling moves the painted pixels, those of the pinned column too.
void ContactTableView::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (m_dropRow.isValid())
        viewport()->update();
    if (dx == 0)
        return;
    viewport()->update(0, 0, widestPinned + qAbs(dx), viewport()->height());
    showPinnedHeader();
}

void ContactTableView::updateGeometries()
{
    QTableView::updateGeometries();
    showPinnedHeader();
}

void ContactTableView::showPinnedHeader()
{
    if (auto *header = qobject_cast<ContactHeader *>(horizontalHeader())) // none while being made
        header->pin(contactColumn(), pinnedWidth());
}

void ContactTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    const QRect pinned(0, 0, pinnedWidth(), viewport()->height());
    if (const QRegion region = event->region().intersected(pinned); !region.isEmpty())
        paintPinned(region);
    paintDropMark();
}

void ContactTableView::paintPinned(const QRegion &region)
{
    QPainter painter(viewport());
    painter.setClipRegion(region);
    const int last = rowAt(region.boundingRect().bottom());
    const int end = last < 0 ? m_model.rowCount() : last + 1;
    for (int row = rowAt(region.boundingRect().top()); row >= 0 && row < end; ++row) {
        const QModelIndex index = m_model.index(row, contactColumn());
        const QRect place = visualRect(index);
        itemDelegate()->paint(&painter, optionFor(index, place), index);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(place.topRight(), place.bottomRight());
    }
}

QStyleOptionViewItem ContactTableView::optionFor(const QModelIndex &index, const QRect &rect) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = rect;
    option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    option.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    return option;
}

} // namespace quenoria
