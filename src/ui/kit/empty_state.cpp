#include "ui/kit/empty_state.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QVBoxLayout>

namespace quenoria {

namespace {

constexpr int columns = 2; ///< of buttons

} // namespace

EmptyState::EmptyState(const QString &symbolName, const QString &title, const QString &description,
                       QWidget *parent)
    : QWidget(parent), m_description(makeLabel(description, TextStyle::body, Tint::secondary)),
      m_buttons(new QGridLayout)
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(new SymbolView(symbol(symbolName, Tint::secondary), 48), 0, Qt::AlignHCenter);
    for (TextLabel *label : {makeLabel(title, TextStyle::headline), m_description}) {
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addLayout(m_buttons);
    row->addStretch();
    column->addLayout(row);
    column->addStretch();
}

void EmptyState::setDescription(const QString &description) { m_description->setText(description); }

void EmptyState::addButton(QWidget *button)
{
    const int others = m_buttons->count();
    m_buttons->addWidget(button, others / columns, others % columns);
}

} // namespace quenoria
