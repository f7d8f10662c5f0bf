#include "ui/window/command_bar.h"

#include "ui/kit/plain_text.h"
#include "ui/window/action_button.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QStyleOptionToolButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int gap = 2;

/// Its sign says that there is more, without an arrow beside it.
class MoreButton : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton *option) const override
    {
        QToolButton::initStyleOption(option);
        option->features = {};
    }
};

} // namespace

CommandBar::CommandBar(const QList<QAction *> &commands, Purpose purpose, QWidget *parent)
    : QWidget(parent), m_commands(commands), m_more(new MoreButton(this))
{
    const bool areCommands = purpose == Purpose::commands;
    for (QAction *command : commands)
        m_buttons << new ActionButton(
            command, areCommands ? ActionButton::Look::quiet : ActionButton::Look::chip, this);
    setFocusProxy(m_buttons.value(0));
    m_more->setText(u"»"_s);
    m_more->setAccessibleName(areCommands ? u"Autres commandes"_s : u"Autres filtres"_s);
    m_more->setToolTip(tipText(m_more->accessibleName()));
    m_more->setFocusPolicy(Qt::StrongFocus);
    m_more->setAutoRaise(true);
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_more->setMenu(new QMenu(m_more));
    connect(m_more->menu(), &QMenu::aboutToShow, this, &CommandBar::fillMenu);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QPoint CommandBar::below(const QAction *command) const
{
    const qsizetype place = m_commands.indexOf(command);
    const QWidget *button = m_more;
    if (place >= 0 && m_buttons[place]->isVisible())
        button = m_buttons[place];
    return button->mapToGlobal(QPoint(0, button->height()));
}

QSize CommandBar::sizeHint() const
{
    QSize size;
    for (const ActionButton *button : m_buttons) {
        const QSize each = button->sizeHint();
        size = {size.width() + each.width() + gap, qMax(size.height(), each.height())};
    }
    return size;
}

QSize CommandBar::minimumSizeHint() const
{
    return {m_more->sizeHint().width(), sizeHint().height()};
}

bool CommandBar::event(QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        arrange();
    return QWidget::event(event);
}

void CommandBar::arrange()
{
    const int most = width() - (sizeHint().width() > width() ? m_more->sizeHint().width() : 0);
    int x = 0;
    bool holds = true;
    for (ActionButton *button : m_buttons) {
        const QSize size = button->sizeHint();
        holds = holds && x + size.width() <= most;
        button->setVisible(holds);
        if (!holds)
            continue;
        button->setGeometry(x, 0, size.width(), height());
        x += size.width() + gap;
    }
    m_more->setVisible(!holds);
    m_more->setGeometry(x, 0, m_more->sizeHint().width(), height());
}

void CommandBar::fillMenu()
{
    m_more->menu()->clear();
    for (qsizetype each = 0; each < m_buttons.size(); ++each) {
        if (m_buttons[each]->isHidden())
            m_more->menu()->addAction(m_commands[each]);
    }
}

} // namespace quenoria
