#include "ui/window/folding_line.h"

#include <QEvent>
#include <QHBoxLayout>

namespace quenoria {

FoldingLine::FoldingLine(int gap, QWidget *parent) : QWidget(parent), m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins({});
    m_row->setSpacing(gap);
    m_row->setSizeConstraint(QLayout::SetNoConstraint);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FoldingLine::addWidget(QWidget *part)
{
    m_parts << part;
    m_row->addWidget(part);
}

void FoldingLine::addStretch() { m_row->addStretch(); }

QSize FoldingLine::minimumSizeHint() const { return {0, m_row->sizeHint().height()}; }

bool FoldingLine::event(QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        fold();
    return QWidget::event(event);
}

void FoldingLine::fold()
{
    int taken = -m_row->spacing();
    for (const QWidget *part : m_parts)
        taken += m_foldable.contains(part) ? 0 : part->sizeHint().width() + m_row->spacing();
    bool holds = true;
    for (QWidget *part : m_foldable) {
        taken += part->sizeHint().width() + m_row->spacing();
        holds = holds && taken <= width();
        part->setVisible(holds);
    }
}

} // namespace quenoria
