#pragma once

#include "messaging/hand_over.h"
#include "messaging/hand_over_watch.h"
#include "messaging/mail_turn.h"
#include "messaging/order_state.h"
#include "messaging/stop_replies.h"
#include "model/channel.h"
#include "platform/task_scope.h"
#include "store/intent_file.h"
#include "store/prospect_store.h"

#include <QPromise>

#include <list>

namespace quenoria {

/// What the user says of a message that may have left.
enum class DoubtAnswer { left, stayed, later };

/// The one place that sends: rows and queues order here, and nothing goes round it.
///
/// A contact has at most one order per channel. Its intent is on the disk before a carrier gets
/// the message, and goes once the send is recorded, so that a process that dies in between leaves
/// a question and never a message that nobody remembers. Confined to the main thread.
class SendDesk : public QObject {
    Q_OBJECT

public:
    /// Takes up what an earlier process left: a send that stands in the history gets its quota,
    /// the others are doubts(). Store and services outlive the desk.
    SendDesk(ProspectStore &store, const Platform &platform);
    ~SendDesk() override;

    ProspectStore &store() const { return m_store; }
    const HandOverWatch &progress() const { return m_progress; }

    /// What an e-mail waits for before its carrier gets it.
    MailTurn &mailTurn() { return m_mailTurn; }

    /// Nothing goes to a contact whose reply waits there.
    StopReplies &stopReplies() { return m_stopReplies; }

    /// Sends to the contact and records it. E-mails wait for each other; an SMS that is ordered
    /// during another is refused.
    [[nodiscard]] QCoro::Task<SendOutcome> order(Channel channel, QString contactId,
                                                 bool freeProEnabled);

    /// Puts the message in front of the user, who sends it.
    [[nodiscard]] Refusal prepare(Channel channel, const Prospect &contact, bool freeProEnabled);

    /// Records a prepared message, on the user's word.
    void confirm(Channel channel, const Prospect &contact);

    [[nodiscard]] bool isUnderWay(Channel channel, const QString &contactId) const;
    [[nodiscard]] bool isBusy() const { return !m_orders.empty(); }

    /// Gives the order up, unless a carrier already has its message.
    void giveUp(Channel channel, const QString &contactId);

    /// Gives up what waits and takes no order until reopen(); idle() tells when nothing is left.
    void close();
    void reopen() { m_isClosed = false; }

    /// Messages that may have left. No other goes to that contact on that channel meanwhile.
    [[nodiscard]] std::vector<SendIntent> doubts() const;
    void answer(const SendIntent &doubt, DoubtAnswer answer);

    /// Asks the user again, if there is a doubt.
    bool raiseDoubt(Channel channel, const QString &contactId);

Q_SIGNALS:
    /// An order for the contact began or ended.
    void underWayChanged(quenoria::Channel channel, const QString &contactId);

    /// A message stands in front of the user, who may send it.
    void prepared(quenoria::Channel channel, const QString &contactId);

    /// The user is to be asked what became of the message.
    void doubtRaised(const quenoria::SendIntent &doubt);

    void doubtAnswered(quenoria::Channel channel, const QString &contactId,
                       quenoria::DoubtAnswer answer);

    /// close() was called: no run goes on, also if the application stays after all.
    void closing();

    /// The last order has ended.
    void idle();

private:
    struct Order;
    using Place = std::list<Order>::iterator;

    Asked circumstances(Channel channel, const QString &contactId);
    Place enter(Channel channel, const QString &contactId);
    QCoro::Task<SendOutcome> carry(Place order, bool freeProEnabled);
    SendOutcome conclude(Place order, const SendOutcome &carried);
    Refusal writeIntent(Order &order, const HandOver &message);
    Refusal record(const Order &order);
    void leave(Place order);
    void callNext(Channel channel);
    Refusal unsaved(Channel channel) const;
    void forgetSaved();
    void reconcile();

    ProspectStore &m_store;
    Platform m_platform;
    IntentFile m_intents;
    HandOverWatch m_progress;
    MailTurn m_mailTurn;
    StopReplies m_stopReplies;
    std::list<Order> m_orders;
    std::vector<SendIntent> m_unsaved; ///< recorded in memory, not yet on the disk
    bool m_isClosed = false;
    TaskScope m_tasks;
};

} // namespace quenoria
