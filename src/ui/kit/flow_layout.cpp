#include "ui/kit/flow_layout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace quenoria {

namespace {

/// Also of a widget that is hidden, for which an item asks for nothing.
QSize wanted(QLayoutItem &item)
{
    const QWidget *widget = item.isEmpty() ? item.widget() : nullptr;
    return widget ? widget->sizeHint().expandedTo(widget->minimumSize()) : item.sizeHint();
}

} // namespace

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

void FlowLayout::fold(bool folded)
{
    if (std::exchange(m_isFolded, folded) == folded)
        return;
    for (QWidget *widget : m_foldable)
        widget->setHidden(folded);
}

int FlowLayout::tallest(bool folded) const
{
    int height = 0;
    for (const auto &item : m_items)
        height = qMax(height, takesRoom(*item, folded) ? wanted(*item).height() : 0);
    return height;
}

bool FlowLayout::takesRoom(QLayoutItem &item, bool folded) const
{
    return m_foldable.contains(item.widget()) ? !folded : !item.isEmpty();
}

QList<FlowLayout::Line> FlowLayout::linesWithin(int width, bool folded) const
{
    QList<Line> lines;
    int end = width;
    for (const auto &item : m_items) {
        if (!takesRoom(*item, folded))
            continue;
        const int itemWidth = wanted(*item).width();
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
int FlowLayout::heightForWidth(int width, bool folded) const
{
    const int lines = int(linesWithin(width, folded).size());
    return lines * (tallest(folded) + lineGap) - lineGap;
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
    const int height = tallest(m_isFolded);
    QRect line(rect.left(), rect.top(), rect.width(), height);
    for (const Line &items : linesWithin(rect.width(), m_isFolded)) {
        placeLine(items, line);
        line.translate(0, height + lineGap);
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
