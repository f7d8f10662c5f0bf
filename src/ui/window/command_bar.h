#pragma once

#include <QList>
#include <QWidget>

class QAction;
class QToolButton;

namespace quenoria {

class ActionButton;

/// Commands on one line, each with its symbol and its text. Those that the width does not hold go
/// into the menu of "»", in their order.
class CommandBar : public QWidget {
    Q_OBJECT

public:
    enum class Purpose { commands, filters };

    explicit CommandBar(const QList<QAction *> &commands, Purpose purpose = Purpose::commands,
                        QWidget *parent = nullptr);

    /// Where something belongs that the command opens: under its button, or under "»".
    QPoint below(const QAction *command) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;

private:
    void arrange();
    void fillMenu();

    QList<QAction *> m_commands;
    QList<ActionButton *> m_buttons; ///< one for each command
    QToolButton *m_more;
};

} // namespace quenoria
