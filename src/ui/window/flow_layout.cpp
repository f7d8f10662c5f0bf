#include "ui/window/flow_layout.h"

#include <QStyle>
#include <QWidget>

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

template <typename Place>
int FlowLayout::arrange(const QRect &rect, Place &&place) const
{
    int x = rect.left();
    int y = rect.top();
    int lineHeight = 0;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (x > rect.left() && x + size.width() > rect.right() + 1) {
            x = rect.left();
            y += lineHeight + spacing();
            lineHeight = 0;
        }
        place(*item, QRect(QPoint(x, y), size));
        x += size.width() + spacing();
        lineHeight = qMax(lineHeight, size.height());
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
