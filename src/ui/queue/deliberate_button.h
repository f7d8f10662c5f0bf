#pragma once

#include <QKeyEvent>
#include <QPushButton>

namespace quenoria {

/// A button that takes a double click, or a key held down, for one click: in a queue the second
/// click would meet the next contact.
class DeliberateButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void mouseDoubleClickEvent(QMouseEvent *) override {}

    void keyPressEvent(QKeyEvent *event) override
    {
        if (!event->isAutoRepeat())
            QPushButton::keyPressEvent(event);
    }
};

} // namespace quenoria
