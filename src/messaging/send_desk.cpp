#include "messaging/send_desk.h"

#include "messaging/channel_delivery.h"
#include "messaging/send_intents.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString notNoted = u"L’envoi n’a pas pu être noté sur le disque ; le message n’est donc pas "
                         "parti : "_s;

const QString saidStop =
    u"Ce contact a répondu STOP : décidez d’abord dans « Réponses STOP » (menu "
    "Envois)."_s;

} // namespace

struct SendDesk::Order {
    Channel channel;
    QString contactId;
    OrderPhase phase = OrderPhase::waiting;
    std::stop_source stop = {};
    QPromise<void> turn = {};
    SendIntent intent = {};
    Prospect contact = {}; ///< as the message went to it
};

SendDesk::SendDesk(ProspectStore &store, const Platform &platform)
    : m_store(store), m_platform(platform), m_intents(platform), m_progress(platform),
      m_mailTurn(store, platform), m_stopReplies(store, platform)
{
    reconcile();
}

SendDesk::~SendDesk()
{
    close();
    forgetSaved();
}

QCoro::Task<SendOutcome> SendDesk::order(Channel channel, QString contactId, bool freeProEnabled)
{
    const OrderStep asked = next(OrderPhase::asked, circumstances(channel, contactId));
    if (asked.action == OrderAction::askUser)
        raiseDoubt(channel, contactId);
    if (asked.outcome)
        co_return *asked.outcome;
    const Place order = enter(channel, contactId);
    const TaskScope::Lease lease = m_tasks.lease();
    const QFuture<void> turn = order->turn.future();
    co_await turn;
    if (lease.isAbandoned())
        co_return Abandoned{};
    const QCoro::Task<SendOutcome> carrying = carry(order, freeProEnabled);
    const SendOutcome carried = co_await carrying;
    if (lease.isAbandoned())
        co_return Abandoned{};
    co_return conclude(order, carried);
}

Asked SendDesk::circumstances(Channel channel, const QString &contactId)
{
    for (const Collection collection : recordsOf(channel)) {
        if (m_store.unsaved().contains(collection))
            m_store.save(collection);
    }
    forgetSaved();
    const std::vector<SendIntent> open = doubts();
    const bool doubted = std::ranges::any_of(open, [&](const SendIntent &doubt) {
        return doubt.contact == contactId && channelOf(doubt) == channel;
    });
    return {isUnderWay(channel, contactId), doubted, m_isClosed, unsaved(channel)};
}

SendDesk::Place SendDesk::enter(Channel channel, const QString &contactId)
{
    const Place order = m_orders.insert(m_orders.end(), Order{channel, contactId});
    order->turn.start();
    if (deliveryOn(channel).oneByOne)
        callNext(channel);
    else
        order->turn.finish();
    Q_EMIT underWayChanged(channel, contactId);
    return order;
}

void SendDesk::callNext(Channel channel)
{
    const auto first = std::ranges::find(m_orders, channel, &Order::channel);
    if (first != m_orders.end() && !first->turn.future().isFinished())
        first->turn.finish();
}

QCoro::Task<SendOutcome> SendDesk::carry(Place order, bool freeProEnabled)
{
    const TaskScope::Lease lease = m_tasks.lease();
    const ChannelDelivery delivery = deliveryOn(order->channel);
    if (delivery.waitsForMailTurn && m_mailTurn.isNeeded() && !order->stop.stop_requested()) {
        const QCoro::Task<> turn = m_mailTurn.wait(order->stop.get_token());
        co_await turn;
        if (lease.isAbandoned())
            co_return Abandoned{};
    }
    const Prospect *contact = m_store.prospect(order->contactId);
    if (!contact || !delivery.send || order->stop.stop_requested())
        co_return Refused{};
    const HandOverGate gate = [this, order](const HandOver &message) {
        return writeIntent(*order, message);
    };
    Sending message{*contact, freeProEnabled, order->stop.get_token(), gate};
    const QCoro::Task<SendOutcome> sending = delivery.send(m_store, std::move(message));
    co_return co_await sending;
}

Refusal SendDesk::writeIntent(Order &order, const HandOver &message)
{
    if (m_stopReplies.isWaiting(message.contact))
        return saidStop;
    const Instant now = std::chrono::floor<std::chrono::seconds>(m_platform.clock.now());
    order.contact = message.contact;
    order.intent = {message.contact.id,
                    nameOf(order.channel),
                    message.contact.label,
                    message.recipient,
                    now,
                    digestOf(message),
                    historySince(m_store, order.channel, message.contact, now)};
    // What went while this one waited for its turn may not be on the disk.
    Refusal failure = unsaved(order.channel);
    if (!failure)
        failure = m_intents.add(order.intent);
    if (!failure)
        m_progress.begin();
    order.phase = next(order.phase, IntentWritten{failure}).phase;
    return failure ? Refusal(notNoted + *failure) : Refusal();
}

SendOutcome SendDesk::conclude(Place order, const SendOutcome &carried)
{
    OrderStep step = next(order->phase, Answered{carried});
    if (step.action == OrderAction::record) {
        step = next(step.phase, RecordWritten{record(*order)});
        if (step.action != OrderAction::dropIntent)
            m_unsaved.push_back(order->intent);
    }
    if (step.action == OrderAction::dropIntent)
        m_intents.remove(order->intent);
    const SendIntent intent = order->intent;
    leave(order);
    if (step.action == OrderAction::askUser) // once whoever ordered knows the outcome
        QMetaObject::invokeMethod(
            this, [this, intent] { Q_EMIT doubtRaised(intent); }, Qt::QueuedConnection);
    return *step.outcome;
}

/// A contact deleted during its send is recorded too: the message has gone out.
Refusal SendDesk::record(const Order &order)
{
    confirm(order.channel, order.contact);
    return unsaved(order.channel);
}

void SendDesk::leave(Place order)
{
    const Channel channel = order->channel;
    const QString contactId = order->contactId;
    m_orders.erase(order);
    Q_EMIT underWayChanged(channel, contactId);
    if (deliveryOn(channel).oneByOne)
        callNext(channel);
    if (isBusy())
        return;
    m_progress.end();
    Q_EMIT idle();
}

Refusal SendDesk::prepare(Channel channel, const Prospect &contact, bool freeProEnabled)
{
    const Asked asked = circumstances(channel, contact.id);
    if (asked.doubted)
        raiseDoubt(channel, contact.id);
    if (asked.doubted || asked.underWay)
        return stillInDoubt;
    if (m_stopReplies.isWaiting(contact))
        return saidStop;
    Refusal refusal = deliveryOn(channel).prepare(m_store, m_platform, contact, freeProEnabled);
    if (!refusal)
        Q_EMIT prepared(channel, contact.id);
    return refusal;
}

void SendDesk::confirm(Channel channel, const Prospect &contact)
{
    m_store.recordSentNow(channel, contact);
}

bool SendDesk::isUnderWay(Channel channel, const QString &contactId) const
{
    return std::ranges::any_of(m_orders, [&](const Order &order) {
        return order.channel == channel && order.contactId == contactId;
    });
}

void SendDesk::giveUp(Channel channel, const QString &contactId)
{
    for (Order &order : m_orders) {
        if (order.channel != channel || order.contactId != contactId)
            continue;
        order.stop.request_stop();
        if (!order.turn.future().isFinished())
            order.turn.finish();
        return; // the order ends now, or later, and takes its place with it
    }
}

void SendDesk::close()
{
    m_isClosed = true;
    Q_EMIT closing();
    std::vector<std::pair<Channel, QString>> all;
    for (const Order &order : m_orders)
        all.emplace_back(order.channel, order.contactId);
    for (const auto &[channel, contactId] : all)
        giveUp(channel, contactId);
}

std::vector<SendIntent> SendDesk::doubts() const
{
    std::vector<SendIntent> open = m_intents.intents();
    std::erase_if(open, [this](const SendIntent &intent) {
        return std::ranges::find(m_unsaved, intent) != m_unsaved.end() ||
               std::ranges::find(m_orders, intent, &Order::intent) != m_orders.end();
    });
    return open;
}

} // namespace quenoria
