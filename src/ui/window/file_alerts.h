#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace quenoria {

class ProspectStore;

/// Tells the user over the window what became of files that could not be read at the start, and
/// of changes that could not be written. One alert at a time, however many changes fail.
class FileAlerts : public QObject {
    Q_OBJECT

public:
    FileAlerts(ProspectStore &store, QWidget *window);

    /// Whether the window may close: tries once more to write what is left, and keeps the window
    /// open once to say what would be lost.
    bool mayLeave();

private:
    void tellOfStart();
    void tellOfFailure();
    void retry();

    ProspectStore &m_store;
    QWidget *m_window;
    QPointer<QWidget> m_alert;
    bool m_isLossAccepted = false;
};

} // namespace quenoria
