#include "ui/kit/empty_state.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QVBoxLayout>

namespace quenoria {

EmptyState::EmptyState(const QString &symbolName, const QString &title, const QString &description,
                       QWidget *parent)
    : QWidget(parent)
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(8);
    column->addStretch();
    column->addWidget(new SymbolView(symbol(symbolName, Tint::secondary), 48), 0, Qt::AlignHCenter);
    for (TextLabel *label : {makeLabel(title, TextStyle::headline),
                             makeLabel(description, TextStyle::body, Tint::secondary)}) {
        label->setAlignment(Qt::AlignHCenter);
        column->addWidget(label);
    }
    column->addStretch();
}

} // namespace quenoria
