#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace quenoria {

class ProspectStore;
class Switches;

/// Tells the user over the window what became of files that could not be read at the start, and
/// of changes that could not be written. One alert at a time, however many changes fail; it goes by
/// itself once everything is written after all.
class FileAlerts : public QObject {
    Q_OBJECT

public:
    FileAlerts(ProspectStore &store, Switches &switches, QWidget *window);

    /// Whether the window may close: tries once more to write what is left, and keeps the window
    /// open once to say what would be lost.
    bool mayLeave();

private:
    void tellOfStart();
    void tellOfFailure();
    void lookAtSwitches();
    void withdraw();
    void retry();
    void saveAgain();
    QStringList failures() const;

    ProspectStore &m_store;
    Switches &m_switches;
    QWidget *m_window;
    QPointer<QWidget> m_alert;
    bool m_isLossAccepted = false;
};

} // namespace quenoria
