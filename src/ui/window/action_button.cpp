#include "ui/window/action_button.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace quenoria {

ActionButton::ActionButton(QAction *action, QWidget *parent) : QPushButton(parent)
{
    setIcon(action->icon());
    setIconSize({16, 16});
    follow(*action);
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, [this, action] { follow(*action); });
}

void ActionButton::follow(const QAction &action)
{
    setText(action.text());
    setEnabled(action.isEnabled());
    const QString shortcut = action.shortcut().toString(QKeySequence::NativeText);
    setToolTip(shortcut.isEmpty() ? QString() : u"%1 (%2)"_s.arg(action.text(), shortcut));
}

ActionSwitch::ActionSwitch(QAction *action, QWidget *parent) : QCheckBox(action->text(), parent)
{
    setToolTip(action->toolTip());
    setAccessibleDescription(action->toolTip());
    setChecked(action->isChecked());
    connect(this, &QCheckBox::toggled, action, &QAction::setChecked);
    connect(action, &QAction::toggled, this, &QCheckBox::setChecked);
}

} // namespace quenoria
