#pragma once

#include <QCheckBox>
#include <QPushButton>

class QAction;

namespace quenoria {

/// A button that stands for an action: its text, symbol and shortcut follow the action.
class ActionButton : public QPushButton {
    Q_OBJECT

public:
    /// A quiet button has no box until the mouse or the keyboard is on it; a chip is a narrow one.
    enum class Look { boxed, quiet, chip };

    ActionButton(QAction *action, Look look, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow(const QAction &action);

    Look m_look;
};

/// A check box that stands for an action that can be checked.
class ActionSwitch : public QCheckBox {
    Q_OBJECT

public:
    explicit ActionSwitch(QAction *action, QWidget *parent = nullptr);
};

} // namespace quenoria
