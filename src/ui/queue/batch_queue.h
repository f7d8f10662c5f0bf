#pragma once

#include "messaging/send_desk.h"
#include "platform/task_scope.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/queue/countdown.h"
#include "ui/queue/run_outlook.h"
#include "ui/queue/run_report.h"

namespace quenoria {

/// One pass through the contacts selected on a channel: follows the rules of next() and carries
/// out what they ask of the desk. The sheet shows it and passes on the user's clicks.
///
/// Owned by the desk, since a run outlives its sheet: closed during a run, the queue waits for
/// the send that was handed over, records it and deletes itself. It deletes itself in any case
/// once it is closed.
class BatchQueue : public QObject {
    Q_OBJECT

public:
    /// All three outlive the queue.
    BatchQueue(const ChannelDescriptor &channel, SendDesk &desk, Switches &switches,
               const Platform &platform);

    /// Builds the queue; with the switch for automatic sending on, a run starts.
    void open();
    void pressPrimary();
    void confirm();
    void skip();
    /// Ends the run before its next contact, as turning the switch off does, and without the wait
    /// for a message that no carrier has yet.
    void stop();

    /// Leaves contacts out of this queue and nothing else: they stay selected. The one whose
    /// message is in front of the user, or under way, stays.
    void remove(const QStringList &ids);

    /// The user goes on in spite of the question.
    void insist(RunQuestion question);
    void neverAskAboutHours() { m_outlook.neverAskAboutHours(); }

    /// An SMS that still waits for its turn is abandoned; one handed over is recorded.
    void close();

    const QueueState &state() const { return m_state; }
    const HandOverWatch &progress() const { return m_desk.progress(); }
    const Countdown &countdown() const { return m_countdown; }
    const ChannelDescriptor &channel() const { return m_channel; }
    const Prospect *current() const; ///< null when the queue is empty or its head was deleted
    bool isAutomatic() const;
    bool isRunning() const { return m_state.phase == QueueState::Phase::running; }
    bool isSending() const; ///< a run is under way, or ends after the sheet was closed
    const RunOutlook &outlook() const { return m_outlook; }

    /// Id of the contact that cannot be left out any more; empty without one.
    QString engaged() const;
    bool canConfirm() const { return m_state.phase == QueueState::Phase::prepared; }

    /// What became of each contact so far.
    RunReport report() const;

    QString primaryText() const;
    QString progressText() const;
    QueuedMessage message() const { return m_channel.queue.message(m_store, *current()); }
    QString allowanceText() const; ///< of a channel that has one
    bool isAllowanceUsedUp() const;
    QString runText() const; ///< what the run does or waits for

    /// Who is left out of the queue for having answered STOP; empty when nobody is.
    QString heldText() const;

    /// "12 contacts · 24 SMS": what is left to send, and what it costs.
    QString costText() const;

Q_SIGNALS:
    /// Something that the sheet shows is another: the state, the switches, the store.
    void changed();

    /// The user is to be asked before a run begins.
    void asked(quenoria::RunQuestion question);

    /// Nothing is left to show: the last contact was handled, or close() was called and what a
    /// carrier had is recorded.
    void closed(const quenoria::RunReport &report);

    void runAsked(QPrivateSignal);

private:
    QStringList selectedIDs() const;
    QueueAction handle(const QueueEvent &event);
    Circumstances circumstances(const QStringList &ids) const;
    std::optional<Prospect> subject(const QueueEvent &event) const;
    void noteServed(const QueueEvent &event, QueueAction action, const Prospect &contact);
    void passOverServed();
    void perform(QueueAction action, const std::optional<Prospect> &contact);
    QCoro::Task<> runAutomaticQueue();
    std::optional<Instant> nextSend() const;
    void stopWaiting();
    void followStore();
    void followStopReplies();
    void followSwitches();
    void callOff();

    const ChannelDescriptor &m_channel;
    SendDesk &m_desk;
    ProspectStore &m_store;
    Switches &m_switches;
    Clock &m_clock;
    QueueState m_state;
    Countdown m_countdown;
    RunOutlook m_outlook;
    struct Served {
        QString id;
        QString label;
    };
    QHash<QString, Served> m_served; ///< by recipient
    RunLog m_log;
    bool m_wasAutomatic;
    bool m_isCalledOff = false;           ///< the run begins no other message
    std::optional<Prospect> m_handedOver; ///< kept, since it may be deleted during its send
    TaskScope m_tasks;                    ///< cancelled, the pause between two contacts ends
};

} // namespace quenoria
