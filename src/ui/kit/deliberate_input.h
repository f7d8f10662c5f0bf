#pragma once

#include <QHash>
#include <QObject>

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
    /// Watches the application for as long as it lives.
    explicit DeliberateInput(QApplication &application);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool repeatsShortcut(const QKeyEvent &key);
    bool takeKeyPress(QObject *watched, const QKeyEvent &key);

    struct Press {
        quint64 first; ///< milliseconds, as all of them
        quint64 last;
        int count = 0; ///< of presses that reached a window
    };
    QHash<int, Press> m_down; ///< by key
};

} // namespace quenoria
