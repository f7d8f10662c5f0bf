#include "ui/kit/form.h"

#include "ui/kit/labels.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace quenoria {

namespace {

constexpr int padding = 16;

} // namespace

Form::Form(QWidget *parent) : QFrame(parent), m_rows(new QFormLayout(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_rows->setContentsMargins(padding, padding, padding, padding);
    m_rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

QLineEdit *Form::addField(const QString &label)
{
    auto *field = new QLineEdit;
    addRow(label, field);
    return field;
}

void Form::addRow(const QString &label, QWidget *control)
{
    QLabel *caption = makeCaption(label, control);
    caption->setMinimumHeight(control->sizeHint().height()); // centres it on the control
    control->setAccessibleName(label);
    m_rows->addRow(caption, control);
}

void Form::addRow(QWidget *control) { m_rows->addRow(nullptr, control); }

void Form::setRowVisible(QWidget *control, bool visible)
{
    m_rows->setRowVisible(control, visible);
}

QLineEdit *makeField(const QString &placeholder)
{
    auto *field = new QLineEdit;
    field->setPlaceholderText(placeholder);
    field->setAccessibleName(placeholder);
    return field;
}

void enableWhenFilled(QPushButton *button, const QList<QLineEdit *> &fields)
{
    const auto isFilled = [](const QLineEdit *field) { return !field->text().trimmed().isEmpty(); };
    const auto enable = [button, fields, isFilled] {
        button->setEnabled(std::ranges::all_of(fields, isFilled));
    };
    for (const QLineEdit *field : fields)
        QObject::connect(field, &QLineEdit::textChanged, button, enable);
    enable();
}

} // namespace quenoria
