#pragma once

#include "ui/queue/queue_channel.h"
#include "ui/queue/queue_state.h"

namespace quenoria {

class Clock;

/// One pass through the contacts selected on a channel: follows the rules of next() and carries
/// out what they ask of the store. The sheet shows it and passes on the user's clicks.
///
/// Owned by the store, since a run outlives its sheet: closed during a run, the queue waits for
/// the send that was handed over, records it and deletes itself. It deletes itself in any case
/// once it is closed. Whoever ends the application waits for sending() to be null.
class BatchQueue : public QObject {
    Q_OBJECT

public:
    /// All three outlive the queue.
    BatchQueue(const QueueChannel &channel, ProspectStore &store, Switches &switches, Clock &clock);

    /// A queue of the store with a run under way, or null. Close it and wait for its idle().
    static BatchQueue *sending(const ProspectStore &store);

    /// Builds the queue; with the switch for automatic sending on, a run starts.
    void open();
    void pressPrimary();
    void confirm();
    void skip();
    /// An SMS that still waits for its turn is abandoned; one handed over is recorded.
    void close();

    const QueueState &state() const { return m_state; }
    const QueueChannel &channel() const { return m_channel; }
    const Prospect *current() const; ///< null when the queue is empty or its head was deleted
    bool isAutomatic() const;
    bool isRunning() const { return m_state.phase == QueueState::Phase::running; }
    bool isSending() const; ///< a run is under way, or ends after the sheet was closed
    bool canConfirm() const { return m_state.phase == QueueState::Phase::prepared; }

    QString primaryText() const;
    QString progressText() const;
    QueuedMessage message() const { return m_channel.message(m_store, *current()); }
    QString quotaText() const; ///< of the SMS channel
    bool isQuotaReached() const;

Q_SIGNALS:
    /// Something that the sheet shows is another: the state, the switches, the store.
    void changed();

    /// Nothing is left to show: the last contact was handled, or close() was called.
    void closed();

    /// The run has ended and what it sent is recorded.
    void idle();

    void runAsked(QPrivateSignal);

private:
    QStringList selectedIDs() const;
    QueueAction take(const QueueEvent &event);
    void perform(QueueAction action, const std::optional<Prospect> &contact);
    QCoro::Task<> runAutomaticQueue();
    void followStore();
    void followSwitches();

    const QueueChannel &m_channel;
    ProspectStore &m_store;
    Switches &m_switches;
    Clock &m_clock;
    QueueState m_state;
    bool m_wasAutomatic;
    std::optional<Prospect> m_handedOver; ///< kept, since it may be deleted during its send
    std::stop_source m_stop;              ///< ends what the run is waiting for
};

} // namespace quenoria
