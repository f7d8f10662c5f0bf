#include "ui/window/panel_field.h"

#include "ui/kit/flow_layout.h"
#include "ui/kit/labels.h"
#include "ui/kit/symbol.h"
#include "ui/table/contact_table_model.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int captionGap = 2;
constexpr int buttonGap = 6;
constexpr qsizetype usualButtons = 2;
constexpr int leastPicked = 12; ///< characters of a template's title

TextLabel *makeNote(Tint tint)
{
    TextLabel *note = makeLabel({}, TextStyle::footnote, tint);
    note->hide();
    return note;
}

} // namespace

PanelField::PanelField(ContactTableModel &model, int column)
    : m_model(model), m_column(column), m_kind(contactColumns()[std::size_t(column)].kind),
      m_parts(new QVBoxLayout(this))
{
    m_parts->setContentsMargins({});
    m_parts->setSpacing(captionGap);
    build();
}

void PanelField::build()
{
    const ContactColumn &column = contactColumns()[std::size_t(m_column)];
    const bool hasCaption = m_kind != CellKind::check && column.text;
    if (m_kind == CellKind::check)
        addCheck();
    else if (m_kind == CellKind::picker)
        addPicker();
    else if (m_kind == CellKind::field)
        addLine();
    else if (hasCaption)
        m_parts->addWidget(m_text = makeLabel({}));
    if (hasCaption)
        addCaption(QString::fromUtf16(column.header));
    if (column.warning)
        m_parts->addWidget(m_warning = makeNote(Tint::negative));
    if (!column.buttons)
        return;
    m_buttonRow = new FlowLayout(buttonGap);
    m_parts->addLayout(m_buttonRow);
    for (qsizetype each = 0; each < usualButtons; ++each)
        button(each); // in the keyboard's order, which is that of their making
}

/// A screen reader takes the name of a picker from its caption alone.
void PanelField::addCaption(const QString &header)
{
    auto *caption = makeCaption(header, m_parts->itemAt(0)->widget());
    caption->setFont(styledFont(TextStyle::footnote));
    caption->setForegroundRole(tintRole(Tint::secondary));
    m_parts->insertWidget(0, caption);
}

void PanelField::addCheck()
{
    m_check = new QCheckBox(m_model.headerData(m_column, Qt::Horizontal).toString());
    connect(m_check, &QCheckBox::clicked, this, [this](bool checked) {
        m_model.setData(m_cell, checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        showCheck(); // the store may have refused
    });
    m_parts->addWidget(m_check);
}

void PanelField::addPicker()
{
    m_picker = new QComboBox;
    m_picker->setAccessibleName(m_model.headerData(m_column, Qt::Horizontal).toString());
    m_picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_picker->setMinimumContentsLength(leastPicked);
    connect(m_picker, &QComboBox::activated, this,
            [this](int choice) { m_model.setData(m_cell, m_picker->itemData(choice)); });
    m_parts->addWidget(m_picker);
}

void PanelField::addLine()
{
    m_line = new QLineEdit;
    m_line->setAccessibleName(m_model.headerData(m_column, Qt::Horizontal).toString());
    connect(m_line, &QLineEdit::editingFinished, this, &PanelField::keepTypedText);
    m_parts->addWidget(m_line);
}

void PanelField::follow(const QModelIndex &row)
{
    const QModelIndex cell = row.siblingAtColumn(m_column);
    if (m_line && m_cell != cell)
        m_line->setModified(false);
    m_cell = cell;
    if (m_text)
        showText();
    if (m_check)
        showCheck();
    if (m_picker)
        showChoices();
    if (m_line)
        showLine();
    if (m_buttonRow)
        showButtons();
    if (m_warning) {
        m_warning->setText(m_cell.data(WarningRole).toString());
        m_warning->setHidden(m_warning->text().isEmpty());
    }
}

void PanelField::showText()
{
    const QString text = m_cell.data().toString();
    m_text->setText(text.isEmpty() ? m_cell.data(PlaceholderRole).toString() : text);
    m_text->setHidden(m_text->text().isEmpty());
    setVisible(m_buttonRow || !m_text->text().isEmpty());
}

void PanelField::showCheck()
{
    m_check->setChecked(m_cell.data(Qt::CheckStateRole).toInt() == Qt::Checked);
    m_check->setEnabled(m_cell.flags() & Qt::ItemIsUserCheckable);
}

/// An open list of choices stays as it is, as long as it is right.
void PanelField::showChoices()
{
    const auto choices = m_cell.data(ChoicesRole).value<CellChoices>();
    bool isRight = m_picker->count() == choices.size();
    for (int each = 0; isRight && each < m_picker->count(); ++each)
        isRight = m_picker->itemData(each).toString() == choices[each].id &&
                  m_picker->itemText(each) == oneLine(choices[each].title);
    if (!isRight) {
        m_picker->clear();
        for (const CellChoice &choice : choices)
            m_picker->addItem(oneLine(choice.title), choice.id);
    }
    m_picker->setCurrentIndex(m_picker->findData(m_cell.data(Qt::EditRole)));
}

void PanelField::showLine()
{
    m_line->setPlaceholderText(m_cell.data(PlaceholderRole).toString());
    if (!m_line->isModified())
        m_line->setText(m_cell.data(Qt::EditRole).toString());
}

void PanelField::keepTypedText()
{
    if (!m_line || !m_line->isModified() || !m_cell.isValid())
        return;
    m_line->setModified(false); // what follows comes back here
    if (m_line->text() != m_cell.data(Qt::EditRole).toString())
        m_model.setData(m_cell, m_line->text());
}

/// Buttons are kept while others are offered, and with them the keyboard's place.
void PanelField::showButtons()
{
    m_offered = m_cell.data(ButtonsRole).value<CellButtons>();
    for (qsizetype each = 0; each < qMax(m_offered.size(), m_buttons.size()); ++each) {
        QPushButton *shown = button(each);
        shown->setVisible(each < m_offered.size());
        if (each >= m_offered.size())
            continue;
        const CellButton &offered = m_offered[each];
        shown->setText(offered.caption.isEmpty() ? offered.name : offered.caption);
        shown->setAccessibleName(offered.name);
        shown->setToolTip(tipText(offered.caption == offered.name ? QString() : offered.name));
        shown->setEnabled(offered.enabled);
        if (!offered.symbol.isEmpty())
            shown->setIcon(symbol(offered.symbol, Tint::secondary));
    }
}

QPushButton *PanelField::button(qsizetype which)
{
    if (which < m_buttons.size())
        return m_buttons[which];
    auto *made = new QPushButton;
    connect(made, &QPushButton::clicked, this, [this, which] {
        if (which < m_offered.size())
            Q_EMIT actionRequested(m_offered[which].action);
    });
    m_buttonRow->addWidget(made);
    m_buttons << made;
    return made;
}

} // namespace quenoria
