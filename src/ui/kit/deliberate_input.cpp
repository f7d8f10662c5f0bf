#include "ui/kit/deliberate_input.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace quenoria {

namespace {

template <typename... Kinds>
bool isAnyOf(QObject *object)
{
    return (qobject_cast<Kinds *>(object) || ...);
}

/// Enter and Space press what has the focus, except where they are typed: held down, they still
/// write their lines and blanks.
bool presses(QObject *target, int key)
{
    const bool hasLines = isAnyOf<QPlainTextEdit, QTextEdit>(target);
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !hasLines;
    case Qt::Key_Space:
    case Qt::Key_Select:
        return !hasLines && !isAnyOf<QLineEdit, QAbstractSpinBox>(target);
    default:
        return false;
    }
}

bool isHeldKey(QObject *target, const QKeyEvent &key)
{
    return key.isAutoRepeat() && target->isWidgetType() && presses(target, key.key());
}

/// The arrows of a calendar and the like are meant to be clicked in a row.
bool takesEveryPress(QObject *target)
{
    const auto *button = qobject_cast<QAbstractButton *>(target);
    return !button || button->autoRepeat();
}

} // namespace

DeliberateInput::DeliberateInput(QApplication &application)
{
    application.installEventFilter(this);
}

bool DeliberateInput::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!static_cast<QKeyEvent *>(event)->isAutoRepeat())
            return false;
        event->accept(); // taken as a plain key, it triggers no command again
        return true;
    case QEvent::KeyPress:
        return isHeldKey(watched, *static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonDblClick:
        return !takesEveryPress(watched);
    case QEvent::Wheel:
        if (!isAnyOf<QComboBox, QAbstractSpinBox>(watched))
            return false;
        event->ignore(); // what the control stands on scrolls instead
        return true;
    default:
        return false;
    }
}

} // namespace quenoria
