#include "ui/window/action_button.h"

#include "ui/kit/plain_text.h"

#include <QAction>
#include <QStyleOptionButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int boxPadding = 14;   ///< that a quiet button can do without, both sides together
constexpr int chipPadding = 20;  ///< both sides together
constexpr int switchHeight = 32; ///< of the buttons that a switch stands beside

} // namespace

ActionButton::ActionButton(QAction *action, Look look, QWidget *parent)
    : QPushButton(parent), m_look(look)
{
    setIcon(action->icon());
    setIconSize({16, 16});
    follow(*action);
    connect(this, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, this, [this, action] { follow(*action); });
}

QSize ActionButton::sizeHint() const
{
    const QSize size = QPushButton::sizeHint();
    if (m_look != Look::chip)
        return m_look == Look::quiet ? size - QSize(boxPadding, 0) : size;
    const int content = fontMetrics().size(Qt::TextShowMnemonic, this->text()).width();
    return {content + chipPadding, size.height()};
}

void ActionButton::paintEvent(QPaintEvent *)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool hasBox = m_look != Look::quiet || underMouse() || isDown() || hasFocus();
    QStylePainter(this).drawControl(hasBox ? QStyle::CE_PushButton : QStyle::CE_PushButtonLabel,
                                    option);
}

void ActionButton::follow(const QAction &action)
{
    setCheckable(action.isCheckable());
    setChecked(action.isChecked());
    setText(action.text());
    setEnabled(action.isEnabled());
    const QString shortcut = action.shortcut().toString(QKeySequence::NativeText);
    setToolTip(tipText(shortcut.isEmpty() ? QString() : u"%1 (%2)"_s.arg(action.text(), shortcut)));
}

ActionSwitch::ActionSwitch(QAction *action, QWidget *parent) : QCheckBox(action->text(), parent)
{
    setToolTip(tipText(action->toolTip()));
    setAccessibleDescription(action->toolTip());
    setMinimumHeight(switchHeight);
    setChecked(action->isChecked());
    connect(this, &QCheckBox::toggled, action, &QAction::setChecked);
    connect(action, &QAction::toggled, this, &QCheckBox::setChecked);
    connect(action, &QAction::changed, this, [this, action] { setText(action->text()); });
}

} // namespace quenoria
