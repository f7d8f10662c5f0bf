#include "ui/window/header_area.h"

#include <QEvent>

namespace quenoria {

HeaderArea::HeaderArea(QWidget *header, QWidget *parent)
    : QScrollArea(parent), m_mostHeight(QWIDGETSIZE_MAX)
{
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(header);
    header->installEventFilter(this);
}

void HeaderArea::setMostHeight(int height)
{
    m_mostHeight = height;
    fit();
}

void HeaderArea::fit() { setFixedHeight(qMin(m_mostHeight, widget()->heightForWidth(width()))); }

void HeaderArea::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    fit();
}

/// A count that grows may make a row of buttons wrap.
bool HeaderArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        fit();
    return QScrollArea::eventFilter(watched, event);
}

} // namespace quenoria
