#include "ui/kit/flow_layout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace quenoria {

FlowLayout::FlowLayout(int gap, QWidget *parent) : QLayout(parent)
{
    setSpacing(gap);
    setContentsMargins({});
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem *item) { m_items.emplace_back(item); }

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[std::size_t(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem *taken = m_items[std::size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return taken;
}

int FlowLayout::tallest() const
{
    int height = 0;
    for (const auto &item : m_items)
        height = qMax(height, item->sizeHint().height());
    return height;
}

QList<FlowLayout::Line> FlowLayout::linesWithin(int width) const
{
    QList<Line> lines;
    int end = width;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const int itemWidth = item->sizeHint().width();
        if (lines.isEmpty() || end + spacing() + itemWidth > width) {
            lines << Line();
            end = -spacing();
        }
        lines.last() << item.get();
        end += spacing() + itemWidth;
    }
    return lines;
}

// One height for all, so that buttons and checkboxes stand on one line.
int FlowLayout::heightForWidth(int width) const
{
    const int lines = int(linesWithin(width).size());
    return lines * (tallest() + lineGap) - lineGap;
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    QRect line(rect.left(), rect.top(), rect.width(), tallest());
    for (const Line &items : linesWithin(rect.width())) {
        placeLine(items, line);
        line.translate(0, tallest() + lineGap);
    }
}

void FlowLayout::placeLine(const Line &line, const QRect &rect) const
{
    int spare = rect.width() - spacing() * int(line.size() - 1);
    for (const QLayoutItem *item : line)
        spare -= item->sizeHint().width();
    const auto stretches = [](const QLayoutItem *item) {
        return bool(item->expandingDirections() & Qt::Horizontal);
    };
    const auto widest = std::find_if(line.rbegin(), line.rend(), stretches);
    int x = rect.left();
    for (QLayoutItem *item : line) {
        int width = item->sizeHint().width();
        if (widest != line.rend() && item == *widest)
            width += spare;
        const QRect place(x, rect.top(), width, rect.height());
        item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), rect, place));
        x += width + spacing();
    }
}

} // namespace quenoria
