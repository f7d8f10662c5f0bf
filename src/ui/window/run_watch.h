#pragma once

#include <QObject>

class QMenu;

namespace quenoria {

class BatchQueue;
class Preferences;

/// Follows a queue for those who look elsewhere than at its sheet: the window's title tells how far
/// a run has come, and the signals what the desktop may show of it.
class RunWatch : public QObject {
    Q_OBJECT

public:
    /// Lives as long as the child of the window that it is given.
    RunWatch(const BatchQueue &queue, const Preferences &preferences, QWidget *parent);

    /// The switch by which the user wants to be told of the end of a run; off at first.
    static void addSwitch(QMenu &menu, Preferences &preferences);

Q_SIGNALS:
    /// Total 0: no run is under way.
    void progressed(int done, int total);

    /// A run came to its end while no window of the application was in front.
    void endedUnseen(const QString &title, const QString &text);

private:
    void look();

    const BatchQueue &m_queue;
    const Preferences &m_preferences;
    QWidget *m_window;
    bool m_wasSending = false;
};

} // namespace quenoria
