#include "ui/kit/empty_state.h"

#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"

#include <QVBoxLayout>

#include <utility>

namespace quenoria {

namespace {

constexpr int mostInLine = 2; ///< of the buttons

} // namespace

EmptyState::EmptyState(const QString &symbolName, const QString &title, const QString &description,
                       QWidget *parent)
    : QWidget(parent), m_description(makeLabel(description, TextStyle::body, Tint::secondary)),
      m_buttonGrid(new QGridLayout)
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
    row->addLayout(m_buttonGrid);
    row->addStretch();
    column->addLayout(row);
    column->addStretch();
}

void EmptyState::setDescription(const QString &description) { m_description->setText(description); }

void EmptyState::addButton(QWidget *button)
{
    m_buttons << button;
    m_columns = 0;
    placeButtons();
}

QSize EmptyState::minimumSizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    return {widestButton() + margins.left() + margins.right(), layout()->minimumSize().height()};
}

void EmptyState::resizeEvent(QResizeEvent *event)
{
    placeButtons();
    QWidget::resizeEvent(event);
}

int EmptyState::widestButton() const
{
    int widest = 0;
    for (const QWidget *button : m_buttons)
        widest = qMax(widest, button->sizeHint().width());
    return widest;
}

void EmptyState::placeButtons()
{
    const int room = layout()->contentsRect().width() + m_buttonGrid->horizontalSpacing();
    const int each = widestButton() + m_buttonGrid->horizontalSpacing();
    const int columns = qBound(1, room / each, mostInLine);
    if (std::exchange(m_columns, columns) == columns)
        return;
    for (int place = 0; place < m_buttons.size(); ++place)
        m_buttonGrid->addWidget(m_buttons[place], place / columns, place % columns);
}

} // namespace quenoria
