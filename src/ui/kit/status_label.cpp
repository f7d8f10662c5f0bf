#include "ui/kit/status_label.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QHBoxLayout>

namespace quenoria {

StatusLabel::StatusLabel(QWidget *parent)
    : QWidget(parent), m_symbol(new SymbolView({}, 18)), m_text(makeLabel({}))
{
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_symbol, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(row);
    column->setAlignment(row, Qt::AlignVCenter);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    setStatus({}, Tint::text);
}

void StatusLabel::setStatus(const QString &text, Tint tint, const QString &symbolName)
{
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_text->setForegroundRole(tintRole(tint));
    m_symbol->setVisible(!symbolName.isEmpty());
    if (!symbolName.isEmpty())
        m_symbol->setIcon(symbol(symbolName, tint));
    setAccessibleName(text);
    setVisible(!text.isEmpty());
}

QString StatusLabel::text() const { return m_text->text(); }

} // namespace quenoria
