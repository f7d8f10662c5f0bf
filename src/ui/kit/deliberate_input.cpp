#include "ui/kit/deliberate_input.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QWindow>

#include <chrono>

namespace quenoria {

namespace {

/// A release may get lost while windows change; no display waits for so long before it repeats.
constexpr quint64 longestGap = 1500;
constexpr std::chrono::milliseconds keyboardInterval{20};

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

/// The arrows of a calendar and the like are meant to be clicked in a row.
bool takesEveryPress(QObject *target)
{
    const auto *button = qobject_cast<QAbstractButton *>(target);
    return !button || button->autoRepeat();
}

} // namespace

DeliberateInput::DeliberateInput(QApplication &application, IsKeyDown isKeyDown)
    : m_isKeyDown(std::move(isKeyDown))
{
    application.installEventFilter(this);
    m_keyboard.setInterval(keyboardInterval);
    m_keyboard.callOnTimeout(this, &DeliberateInput::forgetReleased);
    if (m_isKeyDown)
        connect(&application, &QGuiApplication::focusWindowChanged, &m_keyboard,
                qOverload<>(&QTimer::start));
}

void DeliberateInput::forgetReleased()
{
    m_down.removeIf(
        [this](QHash<int, Press>::iterator press) { return !m_isKeyDown(press->code); });
    if (m_down.isEmpty())
        m_keyboard.stop();
}

bool DeliberateInput::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (!repeatsShortcut(*static_cast<QKeyEvent *>(event)))
            return false;
        event->accept(); // taken as a plain key, it triggers no command again
        return true;
    case QEvent::KeyPress:
        return takeKeyPress(watched, *static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        if (const auto &key = *static_cast<QKeyEvent *>(event); !key.isAutoRepeat())
            m_down.remove(key.key());
        return false;
    case QEvent::ApplicationDeactivate: // whatever is released elsewhere
        m_down.clear();
        return false;
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

/// Comes before each press, and is offered to one widget after the other.
bool DeliberateInput::repeatsShortcut(const QKeyEvent &key)
{
    const quint64 now = key.timestamp();
    auto press = m_down.find(key.key());
    if (press == m_down.end() || now - press->last > longestGap)
        press = m_down.insert(key.key(), {now, now, key.nativeScanCode()});
    press->last = now;
    return key.isAutoRepeat() || press->first != now;
}

/// Counted where it reaches the window, dropped where it would act.
bool DeliberateInput::takeKeyPress(QObject *watched, const QKeyEvent &key)
{
    if (watched->isWindowType())
        ++m_down[key.key()].count;
    const bool isHeld = key.isAutoRepeat() || m_down.value(key.key()).count > 1;
    return isHeld && watched->isWidgetType() && presses(watched, key.key());
}

} // namespace quenoria
