#pragma once

#include <QObject>

class QSocketNotifier;

namespace quenoria {

/// The requests to end that the system makes of a process: SIGTERM, SIGHUP and SIGINT, as events
/// of the main thread. The first one is a request; another one before rearm() ends the process at
/// once. One instance, for the life of the process.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    TerminationSignals();

    /// The request was not followed: the next signal is a request again.
    void rearm();

Q_SIGNALS:
    /// The exit code that tells the signal: 128 and its number.
    void received(int exitCode);

private:
    void read();

    QSocketNotifier *m_notifier = nullptr;
};

} // namespace quenoria
