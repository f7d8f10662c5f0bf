#pragma once

#include <QCheckBox>
#include <QPushButton>

class QAction;

namespace quenoria {

/// A button that stands for an action: its text, symbol and shortcut follow the action.
class ActionButton : public QPushButton {
    Q_OBJECT

public:
    explicit ActionButton(QAction *action, QWidget *parent = nullptr);

private:
    void follow(const QAction &action);
};

/// A check box that stands for an action that can be checked.
class ActionSwitch : public QCheckBox {
    Q_OBJECT

public:
    explicit ActionSwitch(QAction *action, QWidget *parent = nullptr);
};

} // namespace quenoria
