#include "ui/kit/empty_state.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QVBoxLayout>

namespace quenoria {

EmptyState::EmptyState(const QString &symbolName, const QString &title, const QString &description,
                       QWidget *parent)
    : QWidget(parent), m_description(makeLabel(description, TextStyle::body, Tint::secondary)),
      m_buttons(new QHBoxLayout)
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(new SymbolView(symbol(symbolName, Tint::secondary), 48), 0, Qt::AlignHCenter);
    for (TextLabel *label : {makeLabel(title, TextStyle::headline), m_description}) {
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    m_buttons->addStretch();
    m_buttons->addStretch();
    column->addLayout(m_buttons);
    column->addStretch();
}

void EmptyState::setDescription(const QString &description) { m_description->setText(description); }

void EmptyState::addButton(QWidget *button)
{
    m_buttons->insertWidget(m_buttons->count() - 1, button);
}

} // namespace quenoria
