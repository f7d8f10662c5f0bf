#include "messaging/send_desk.h"

#include "store/collection.h"

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

QString nameOf(Channel channel) { return channel == Channel::sms ? u"sms"_s : u"email"_s; }

Channel channelOf(const SendIntent &intent)
{
    return intent.channel == nameOf(Channel::sms) ? Channel::sms : Channel::email;
}

/// The contact as the message was addressed to it.
Prospect contactOf(const SendIntent &intent)
{
    Prospect contact;
    contact.id = intent.contact;
    contact.label = intent.label;
    if (channelOf(intent) == Channel::sms)
        contact.phone = intent.recipient;
    else
        contact.email = intent.recipient;
    return contact;
}

std::vector<Instant> historySince(const ProspectStore &store, Channel channel,
                                  const Prospect &contact, Instant instant)
{
    std::vector<Instant> history =
        channel == Channel::sms ? store.sendHistory(contact) : store.emailHistory(contact);
    std::erase_if(history, [instant](Instant date) { return date < instant; });
    return history;
}

/// The files that a send is recorded in, in their order.
std::vector<Collection> recordsOf(Channel channel)
{
    if (channel == Channel::sms)
        return {Collection::statuses, Collection::smsMonthlyRecipientsByMonth};
    return {Collection::emailStatuses};
}

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
    if (channel == Channel::sms)
        order->turn.finish(); // the store spaces and refuses them
    else
        callNextEmail();
    Q_EMIT underWayChanged(channel, contactId);
    return order;
}

void SendDesk::callNextEmail()
{
    const auto first = std::ranges::find(m_orders, Channel::email, &Order::channel);
    if (first != m_orders.end() && !first->turn.future().isFinished())
        first->turn.finish();
}

QCoro::Task<SendOutcome> SendDesk::carry(Place order, bool freeProEnabled)
{
    const TaskScope::Lease lease = m_tasks.lease();
    if (order->channel == Channel::email && m_mailTurn.isNeeded() &&
        !order->stop.stop_requested()) {
        const QCoro::Task<> turn = m_mailTurn.wait(order->stop.get_token());
        co_await turn;
        if (lease.isAbandoned())
            co_return Abandoned{};
    }
    const Prospect *contact = m_store.prospect(order->contactId);
    if (!contact || order->stop.stop_requested())
        co_return Refused{};
    const HandOverGate gate = [this, order](const HandOver &message) {
        return writeIntent(*order, message);
    };
    const QCoro::Task<SendOutcome> sending =
        order->channel == Channel::sms
            ? m_store.sendSMSAutomatically(*contact, freeProEnabled, order->stop.get_token(), gate)
            : m_store.sendEmailAutomatically(*contact, gate);
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
    callNextEmail();
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
    Refusal refusal = channel == Channel::sms ? m_store.prepareSMS(contact, freeProEnabled)
                                              : m_store.prepareEmail(contact);
    if (!refusal)
        Q_EMIT prepared(channel, contact.id);
    return refusal;
}

void SendDesk::confirm(Channel channel, const Prospect &contact)
{
    if (channel == Channel::sms)
        m_store.recordSentNow(contact);
    else
        m_store.recordEmailSentNow(contact);
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

bool SendDesk::raiseDoubt(Channel channel, const QString &contactId)
{
    for (const SendIntent &doubt : doubts()) {
        if (doubt.contact == contactId && channelOf(doubt) == channel) {
            Q_EMIT doubtRaised(doubt);
            return true;
        }
    }
    return false;
}

void SendDesk::answer(const SendIntent &doubt, DoubtAnswer answer)
{
    const Channel channel = channelOf(doubt);
    if (answer == DoubtAnswer::left && channel == Channel::sms)
        m_store.recordSent(contactOf(doubt), doubt.instant);
    else if (answer == DoubtAnswer::left)
        m_store.recordEmailSent(contactOf(doubt), doubt.instant);
    if (answer == DoubtAnswer::left && unsaved(channel))
        m_unsaved.push_back(doubt);
    else if (answer != DoubtAnswer::later)
        m_intents.remove(doubt);
    if (answer == DoubtAnswer::left)
        m_stopReplies.readAgain(); // what came since the message is newer than a send now
    Q_EMIT doubtAnswered(channel, doubt.contact, answer);
}

Refusal SendDesk::unsaved(Channel channel) const
{
    for (const Collection collection : recordsOf(channel)) {
        const auto found = m_store.unsaved().find(collection);
        if (found != m_store.unsaved().end())
            return found->second;
    }
    return {};
}

/// What could not be recorded on the disk at first may be there by now.
void SendDesk::forgetSaved()
{
    std::erase_if(m_unsaved, [this](const SendIntent &intent) {
        const bool isSaved = !unsaved(channelOf(intent));
        if (isSaved)
            m_intents.remove(intent);
        return isSaved;
    });
}

/// A process that died between two files leaves the later one behind: the history comes first,
/// then the quota, then the intent goes.
void SendDesk::reconcile()
{
    const std::vector<SendIntent> left = m_intents.intents();
    for (const SendIntent &intent : left) {
        const Channel channel = channelOf(intent);
        const Prospect contact = contactOf(intent);
        const std::vector<Instant> since = historySince(m_store, channel, contact, intent.instant);
        if (since.size() <= intent.known.size())
            continue;
        if (channel == Channel::sms)
            m_store.recordSMSRecipientUsage(contact, since.back());
        if (unsaved(channel))
            m_unsaved.push_back(intent);
        else
            m_intents.remove(intent);
    }
}

} // namespace quenoria
