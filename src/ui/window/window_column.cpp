#include "ui/window/window_column.h"

#include "ui/window/window_header.h"

#include <QEvent>
#include <QVBoxLayout>

namespace quenoria {

namespace {

constexpr int tableHeight = 120; ///< the least

int least(const QLayoutItem &part, int width)
{
    if (part.isEmpty())
        return 0;
    return part.hasHeightForWidth() ? part.minimumHeightForWidth(width)
                                    : part.minimumSize().height();
}

} // namespace

WindowColumn::WindowColumn(WindowHeader *header, QWidget *parent)
    : QWidget(parent), m_header(header), m_parts(new QVBoxLayout(this))
{
    m_parts->setContentsMargins({});
    m_parts->setSpacing(0);
    m_parts->addWidget(header);
}

QSize WindowColumn::minimumSizeHint() const
{
    return {m_parts->minimumSize().width(), m_header->leastHeight() + tableHeight};
}

bool WindowColumn::event(QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        fold();
    return QWidget::event(event);
}

void WindowColumn::fold()
{
    int room = height();
    for (int each = 0; each < m_parts->count(); ++each) {
        const QLayoutItem &part = *m_parts->itemAt(each);
        room -= part.widget() == m_header ? 0 : least(part, width());
    }
    m_header->fitInto({width(), room});
}

} // namespace quenoria
