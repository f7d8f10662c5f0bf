#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>

class QApplication;
class QKeyEvent;

namespace quenoria {

/// Takes one gesture of the hand for one act, in every window of the application: a held key, the
/// second press of a double click and a wheel that passes over a closed picker or a date do
/// nothing. What sends, records, ticks or deletes never has to ask for itself.
///
/// A key is held when it is pressed again before it was released: not every display marks what it
/// repeats.
class DeliberateInput : public QObject {
public:
    /// Whether the key with the display's own code is down right now.
    using IsKeyDown = std::function<bool(quint32 code)>;

    /// Watches the application for as long as it lives. A window that closes on a press may take
    /// the release with it: then the keyboard itself is asked, where it can be.
    explicit DeliberateInput(QApplication &application, IsKeyDown isKeyDown = {});

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool repeatsShortcut(const QKeyEvent &key);
    bool takeKeyPress(QObject *watched, const QKeyEvent &key);

    struct Press {
        quint64 first; ///< milliseconds, as all of them
        quint64 last;
        quint32 code;  ///< the display's own
        int count = 0; ///< of presses that reached a window
    };
    void forgetReleased();

    IsKeyDown m_isKeyDown;
    QHash<int, Press> m_down; ///< by key
    QTimer m_keyboard;        ///< runs after a change of windows, until nothing is down
};

} // namespace quenoria
