#include "ui/window/flow_layout.h"

#include <QStyle>
#include <QWidget>

namespace quenoria {

FlowLayout::FlowLayout(int gap, int overhang) : m_overhang(overhang)
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

template <typename Place>
int FlowLayout::arrange(const QRect &rect, Place &&place) const
{
    // One height for all, so that buttons and checkboxes stand on one line.
    const int lineHeight = tallest();
    const int start = rect.left() - m_overhang;
    int x = start;
    int y = rect.top();
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const int width = item->sizeHint().width();
        if (x > start && x + width > rect.right() + 1) {
            x = start;
            y += lineHeight + spacing();
        }
        place(*item, QRect(x, y, width, lineHeight));
        x += width + spacing();
    }
    return y + lineHeight - rect.top();
}

int FlowLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), [](QLayoutItem &, const QRect &) {});
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
    const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
    arrange(rect, [&rect, direction](QLayoutItem &item, const QRect &place) {
        item.setGeometry(QStyle::visualRect(direction, rect, place));
    });
}

} // namespace quenoria
