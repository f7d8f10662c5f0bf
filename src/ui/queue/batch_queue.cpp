#include "ui/queue/batch_queue.h"

#include "model/text_order.h"
#include "platform/clock.h"
#include "ui/kit/switches.h"

#include <QCoroFuture>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::chrono::milliseconds pauseBetweenContacts{800};

} // namespace

BatchQueue::BatchQueue(const ChannelDescriptor &channel, SendDesk &desk, Switches &switches,
                       const Platform &platform)
    : QObject(&desk), m_channel(channel), m_desk(desk), m_store(desk.store()), m_switches(switches),
      m_clock(platform.clock), m_countdown(platform.clock),
      m_outlook(channel, desk, switches, platform), m_wasAutomatic(isAutomatic())
{
    connect(&m_store, &ProspectStore::published, this, &BatchQueue::followStore);
    connect(&switches, &Switches::changed, this, &BatchQueue::followSwitches);
    connect(&desk, &SendDesk::closing, this, &BatchQueue::callOff);
    connect(this, &BatchQueue::runAsked, this, &BatchQueue::runAutomaticQueue,
            Qt::QueuedConnection);
    connect(&desk.mailTurn(), &MailTurn::noticeChanged, this, [this] {
        m_countdown.follow(nextSend());
        Q_EMIT changed();
    });
    connect(&desk.stopReplies(), &StopReplies::changed, this, &BatchQueue::followStopReplies);
    connect(&desk, &SendDesk::doubtAnswered, this,
            [this](Channel where, const QString &contactId, DoubtAnswer answer) {
                if (where == m_channel.channel && answer != DoubtAnswer::later)
                    handle(DoubtSettled{contactId, answer == DoubtAnswer::left});
            });
}

void BatchQueue::open()
{
    handle(Opened{selectedIDs()});
    followStopReplies();
}

void BatchQueue::pressPrimary() { handle(PrimaryPressed{}); }
void BatchQueue::confirm() { handle(Confirmed{}); }
void BatchQueue::skip() { handle(Skipped{}); }

void BatchQueue::stop()
{
    if (!isRunning())
        return;
    m_switches.set(m_channel.automatic->turnedOn.which, false);
    stopWaiting();
}

void BatchQueue::remove(const QStringList &ids) { handle(Removed{ids, engaged()}); }

void BatchQueue::insist(RunQuestion question)
{
    m_outlook.allow(question);
    handle(RunInsisted{});
}

QString BatchQueue::engaged() const
{
    if (m_handedOver)
        return m_handedOver->id;
    return canConfirm() ? m_state.queueIDs.value(0) : QString();
}

void BatchQueue::close()
{
    handle(Closed{});
    stopWaiting();
}

void BatchQueue::stopWaiting()
{
    m_tasks.cancel();
    if (m_handedOver)
        m_desk.giveUp(m_channel.channel, m_handedOver->id);
}

QStringList BatchQueue::selectedIDs() const
{
    std::vector<const Prospect *> selected;
    for (const Prospect &prospect : m_store.allProspects()) {
        if (m_channel.queue.holds(m_store, prospect) && !m_store.isStopped(prospect) &&
            !m_desk.isUnderWay(m_channel.channel, prospect.id))
            selected.push_back(&prospect);
    }
    std::ranges::stable_sort(selected, std::ref(finderOrder()), &Prospect::label);
    QStringList ids;
    for (const Prospect *prospect : selected)
        ids << prospect->id;
    ids.removeDuplicates(); // an older folder may hold a contact twice
    return ids;
}

const Prospect *BatchQueue::current() const
{
    return m_state.queueIDs.isEmpty() ? nullptr : m_store.prospect(m_state.queueIDs.first());
}

bool BatchQueue::isAutomatic() const { return m_channel.isAutomatic(m_switches); }

bool BatchQueue::isSending() const
{
    return isRunning() || m_state.phase == QueueState::Phase::leaving;
}

/// What the run waits for, of more than the pause between two contacts.
std::optional<Instant> BatchQueue::nextSend() const
{
    if (!isRunning() || !m_channel.pace.nextTurn)
        return std::nullopt;
    return m_channel.pace.nextTurn(m_desk, m_clock.now());
}

QueueAction BatchQueue::handle(const QueueEvent &event)
{
    const bool wasClosed = m_state.phase == QueueState::Phase::closed;
    const std::optional<Prospect> contact = subject(event);
    const auto *opened = std::get_if<Opened>(&event);
    const Circumstances now = circumstances(opened ? opened->queueIDs : m_state.queueIDs);
    Step step = next(std::move(m_state), event, now);
    m_state = std::move(step.state);
    if (contact) {
        noteServed(event, step.action, *contact);
        m_log.note(event, step.action, *contact);
    }
    m_isCalledOff = m_isCalledOff && isRunning();
    perform(step.action, contact);
    passOverServed();
    m_countdown.follow(nextSend());
    Q_EMIT changed();
    if (!wasClosed && m_state.phase == QueueState::Phase::closed) {
        deleteLater();
        Q_EMIT closed(report());
    }
    return step.action;
}

Circumstances BatchQueue::circumstances(const QStringList &ids) const
{
    const bool automatic = isAutomatic() && !m_isCalledOff;
    const bool asksFirst = automatic && !isSending() && m_outlook.question(ids);
    return {automatic, current() != nullptr, asksFirst};
}

std::optional<Prospect> BatchQueue::subject(const QueueEvent &event) const
{
    const auto *settled = std::get_if<DoubtSettled>(&event);
    if (m_handedOver && !settled)
        return m_handedOver;
    const Prospect *contact = settled ? m_store.prospect(settled->contactId) : current();
    return contact ? std::optional(*contact) : std::nullopt;
}

/// Remembers whose message left, or may have.
void BatchQueue::noteServed(const QueueEvent &event, QueueAction action, const Prospect &contact)
{
    const QString recipient = m_channel.queue.recipient(contact);
    const auto *answered = std::get_if<SendAnswered>(&event);
    const auto *settled = std::get_if<DoubtSettled>(&event);
    const bool mayHaveLeft = answered && !std::holds_alternative<Refused>(answered->outcome);
    if (action == QueueAction::record || mayHaveLeft || (settled && settled->left))
        m_served.insert(recipient, {contact.id, contact.label});
    else if (settled)
        m_served.remove(recipient);
}

/// Two contacts may have come to share a number or an address: nobody gets the message twice.
void BatchQueue::passOverServed()
{
    for (const Prospect *head = current(); head; head = current()) {
        const auto served = m_served.constFind(m_channel.queue.recipient(*head));
        const qsizetype before = m_state.queueIDs.size();
        const Prospect passed = *head;
        if (served != m_served.cend() && served->id != passed.id)
            m_state = next(std::move(m_state), ServedBefore{served->label}, {}).state;
        if (m_state.queueIDs.size() == before)
            return;
        m_log.notePassedOver(passed, served->label);
    }
}

void BatchQueue::perform(QueueAction action, const std::optional<Prospect> &contact)
{
    switch (action) {
    case QueueAction::none:
    case QueueAction::send: // by the run, which asked for it
        break;
    case QueueAction::prepare:
        handle(
            PrepareAnswered{m_desk.prepare(m_channel.channel, *contact, m_switches.freeProPlan())});
        break;
    case QueueAction::ask:
        if (const auto question = m_outlook.question(m_state.queueIDs))
            Q_EMIT asked(*question);
        break;
    case QueueAction::startRun:
        m_outlook.noteStart();
        // From the event loop, so that the sheet shows the run before its first message goes.
        Q_EMIT runAsked({});
        break;
    case QueueAction::record:
        m_desk.confirm(m_channel.channel, *contact);
        [[fallthrough]];
    case QueueAction::deselect:
        if (contact)
            m_store.select(m_channel.channel, false, *contact);
        break;
    }
}

QCoro::Task<> BatchQueue::runAutomaticQueue()
{
    while (handle(TurnReached{}) == QueueAction::send) {
        const TaskScope::Lease lease = m_tasks.lease();
        m_handedOver = *current();
        const QCoro::Task<SendOutcome> sending =
            m_desk.order(m_channel.channel, m_handedOver->id, m_switches.freeProPlan());
        const SendOutcome outcome = co_await sending;
        if (lease.isAbandoned())
            co_return;
        const Prospect contact = *m_handedOver;
        const bool isHeld = isRunning() && std::holds_alternative<Refused>(outcome) &&
                            m_desk.stopReplies().isWaiting(contact);
        if (std::holds_alternative<Sent>(outcome))
            m_outlook.noteSent();
        if (!isHeld)
            handle(SendAnswered{outcome});
        m_handedOver.reset();
        followStopReplies();
        if (!isRunning())
            break;
        const QFuture<void> pause = m_clock.sleep(pauseBetweenContacts, lease.token());
        co_await pause;
        if (lease.isAbandoned())
            co_return;
    }
}

/// Somebody wants to leave. Should the application stay after all, the user starts again.
void BatchQueue::callOff()
{
    m_isCalledOff = isRunning();
    m_tasks.cancel();
}

void BatchQueue::followStore()
{
    if (isSending() && !current())
        stopWaiting();
    Q_EMIT changed();
}

void BatchQueue::followStopReplies()
{
    StopRepliesChanged event{{}, {}, m_handedOver ? m_handedOver->id : QString()};
    for (const QString &id : m_state.queueIDs + m_state.heldIDs) {
        const Prospect *contact = m_store.prospect(id);
        if (!contact || m_store.isStopped(*contact))
            event.gone << id;
        else if (m_desk.stopReplies().isWaiting(*contact))
            event.waiting << id;
    }
    if (!event.waiting.isEmpty() || !m_state.heldIDs.isEmpty())
        handle(event);
}

void BatchQueue::followSwitches()
{
    const bool switchedOn = isAutomatic() && !m_wasAutomatic;
    m_wasAutomatic = isAutomatic();
    if (switchedOn)
        handle(SwitchedOn{});
    else
        Q_EMIT changed();
}

} // namespace quenoria
