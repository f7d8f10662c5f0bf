#include "ui/sheets/choice_picker.h"

#include "ui/kit/plain_text.h"

namespace quenoria {

ChoicePicker::ChoicePicker(const QString &accessibleName, QWidget *parent) : QComboBox(parent)
{
    setAccessibleName(accessibleName);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::activated, this,
            [this](int row) { Q_EMIT picked(itemData(row).toString()); });
}

void ChoicePicker::setChoices(const std::vector<Choice> &choices, const QString &selected,
                              LastRow last)
{
    clear();
    for (const Choice &choice : choices)
        addItem(oneLine(choice.text), choice.id);
    if (last == LastRow::setApart)
        insertSeparator(count() - 1);
    setCurrentIndex(findData(selected));
}

} // namespace quenoria
