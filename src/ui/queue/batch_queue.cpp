#include "ui/queue/batch_queue.h"

#include "model/text_order.h"
#include "platform/clock.h"
#include "ui/kit/switches.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::chrono::milliseconds pauseBetweenContacts{800};

QList<BatchQueue *> queues(const ProspectStore &store)
{
    return store.findChildren<BatchQueue *>(Qt::FindDirectChildrenOnly);
}

} // namespace

BatchQueue::BatchQueue(const QueueChannel &channel, ProspectStore &store, Switches &switches,
                       Clock &clock)
    : QObject(&store), m_channel(channel), m_store(store), m_switches(switches), m_clock(clock),
      m_wasAutomatic(isAutomatic())
{
    connect(&store, &ProspectStore::published, this, &BatchQueue::followStore);
    connect(&switches, &Switches::changed, this, &BatchQueue::followSwitches);
    connect(this, &BatchQueue::runAsked, this, &BatchQueue::runAutomaticQueue,
            Qt::QueuedConnection);
}

BatchQueue *BatchQueue::sending(const ProspectStore &store)
{
    const QList<BatchQueue *> all = queues(store);
    const auto found = std::ranges::find_if(all, &BatchQueue::isSending);
    return found == all.end() ? nullptr : *found;
}

void BatchQueue::open() { take(Opened{selectedIDs()}); }
void BatchQueue::pressPrimary() { take(PrimaryPressed{}); }
void BatchQueue::confirm() { take(Confirmed{}); }
void BatchQueue::skip() { take(Skipped{}); }

void BatchQueue::close()
{
    take(Closed{});
    m_stop.request_stop();
}

QStringList BatchQueue::selectedIDs() const
{
    // A queue closed a moment ago may still be sending: its contact must not be queued again.
    QStringList underWay;
    for (const BatchQueue *other : queues(m_store)) {
        if (other->m_handedOver && &other->m_channel == &m_channel)
            underWay << other->m_handedOver->id;
    }
    std::vector<const Prospect *> selected;
    for (const Prospect &prospect : m_store.allProspects()) {
        if (m_channel.isQueued(m_store, prospect) && !m_store.isStopped(prospect) &&
            !underWay.contains(prospect.id))
            selected.push_back(&prospect);
    }
    std::ranges::stable_sort(selected, finderOrder(), &Prospect::label);
    QStringList ids;
    for (const Prospect *prospect : selected)
        ids << prospect->id;
    return ids;
}

const Prospect *BatchQueue::current() const
{
    return m_state.queueIDs.isEmpty() ? nullptr : m_store.prospect(m_state.queueIDs.first());
}

bool BatchQueue::isAutomatic() const { return (m_switches.*m_channel.isAutomatic)(); }

bool BatchQueue::isSending() const
{
    return isRunning() || m_state.phase == QueueState::Phase::leaving;
}

QString BatchQueue::primaryText() const
{
    if (isRunning())
        return u"Envoi automatique…"_s;
    return isAutomatic() ? m_channel.startAutomatic : m_channel.prepare;
}

QString BatchQueue::progressText() const
{
    return u"Contact %1 sur %2"_s.arg(m_state.completedCount + 1).arg(m_state.initialQueueCount);
}

QString BatchQueue::quotaText() const
{
    if (m_switches.freeProPlan())
        return u"Sans limite"_s;
    return u"%1/%2 ce mois"_s.arg(m_store.smsRecipientsSentThisMonth())
        .arg(ProspectStore::standardSMSMonthlyRecipientLimit);
}

bool BatchQueue::isQuotaReached() const
{
    return !m_switches.freeProPlan() && m_store.remainingStandardSMSRecipientsThisMonth() == 0;
}

QueueAction BatchQueue::take(const QueueEvent &event)
{
    const Prospect *head = current();
    const bool wasSending = isSending();
    const bool wasClosed = m_state.phase == QueueState::Phase::closed;
    std::optional<Prospect> contact = m_handedOver;
    if (head && !contact)
        contact = *head;
    Step step = next(std::move(m_state), event, {isAutomatic(), head != nullptr});
    m_state = std::move(step.state);
    perform(step.action, contact);
    Q_EMIT changed();
    if (wasSending && !isSending())
        Q_EMIT idle();
    if (!wasClosed && m_state.phase == QueueState::Phase::closed) {
        deleteLater();
        Q_EMIT closed();
    }
    return step.action;
}

void BatchQueue::perform(QueueAction action, const std::optional<Prospect> &contact)
{
    switch (action) {
    case QueueAction::none:
    case QueueAction::send: // by the run, which asked for it
        break;
    case QueueAction::prepare:
        take(PrepareAnswered{m_channel.prepareMessage(m_store, m_switches, *contact)});
        break;
    case QueueAction::startRun:
        // From the event loop, so that the sheet shows the run before its first message goes.
        Q_EMIT runAsked({});
        break;
    case QueueAction::record:
        // A contact deleted during its send too: the message has gone out, so the month counts
        // it, and whoever enters the number again sees when.
        (m_store.*m_channel.record)(*contact);
        [[fallthrough]];
    case QueueAction::deselect:
        (m_store.*m_channel.select)(false, *contact);
        break;
    }
}

QCoro::Task<> BatchQueue::runAutomaticQueue()
{
    while (take(TurnReached{}) == QueueAction::send) {
        m_stop = std::stop_source();
        m_handedOver = *current();
        const QCoro::Task<Refusal> sending =
            m_channel.send(m_store, m_switches, *m_handedOver, m_stop.get_token());
        const Refusal refusal = co_await sending;
        take(SendAnswered{refusal});
        m_handedOver.reset();
        if (!isRunning())
            break;
        const QFuture<void> pause = m_clock.sleep(pauseBetweenContacts, m_stop.get_token());
        co_await pause;
    }
}

void BatchQueue::followStore()
{
    if (isSending() && !current())
        m_stop.request_stop();
    Q_EMIT changed();
}

void BatchQueue::followSwitches()
{
    const bool switchedOn = isAutomatic() && !m_wasAutomatic;
    m_wasAutomatic = isAutomatic();
    if (switchedOn)
        take(SwitchedOn{});
    else
        Q_EMIT changed();
}

} // namespace quenoria
