#include "ui/queue/queue_state.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

using Phase = QueueState::Phase;

const QString interrupted = u"Cet envoi a été interrompu. Le message est peut-être parti."_s;
const QString recordUnsaved =
    u"Le dernier message est parti, mais son suivi n’est pas encore enregistré : la file s’est "
    "arrêtée."_s;

Refusal wordOn(const SendOutcome &outcome)
{
    const auto *refused = std::get_if<Refused>(&outcome);
    return refused ? refused->message : interrupted;
}

/// The rules, one per event.
class Rules {
public:
    Rules(QueueState state, Circumstances circumstances)
        : m_state(std::move(state)), m_circumstances(circumstances)
    {
    }

    Step operator()(const Opened &event)
    {
        m_state = {event.queueIDs, 0, int(event.queueIDs.size()), Phase::waiting, {}};
        return m_circumstances.automatic ? startedRun() : unchanged();
    }

    Step operator()(const PrimaryPressed &)
    {
        if (m_circumstances.automatic)
            return startedRun();
        return does(awaitsUser() && m_circumstances.present ? QueueAction::prepare
                                                            : QueueAction::none);
    }

    Step operator()(const PrepareAnswered &event)
    {
        if (!awaitsUser())
            return unchanged();
        m_state.phase = event.refusal ? Phase::waiting : Phase::prepared;
        say(event.refusal);
        return unchanged();
    }

    Step operator()(const Confirmed &)
    {
        if (m_state.phase != Phase::prepared)
            return unchanged();
        advancePastCurrent(Phase::waiting);
        return does(m_circumstances.present ? QueueAction::record : QueueAction::none);
    }

    Step operator()(const Skipped &)
    {
        if (!awaitsUser())
            return unchanged();
        advancePastCurrent(Phase::waiting);
        return does(m_circumstances.present ? QueueAction::deselect : QueueAction::none);
    }

    Step operator()(const SwitchedOn &) { return startedRun(); }

    Step operator()(const RunInsisted &)
    {
        return m_circumstances.automatic ? startedRun() : unchanged();
    }

    Step operator()(const TurnReached &)
    {
        if (m_state.phase == Phase::leaving)
            m_state.phase = Phase::closed;
        if (m_state.phase != Phase::running)
            return unchanged();
        if (m_circumstances.automatic && m_circumstances.present)
            return does(QueueAction::send);
        m_state.phase = Phase::waiting;
        return unchanged();
    }

    Step operator()(const SendAnswered &event)
    {
        const bool leaving = m_state.phase == Phase::leaving;
        if (!leaving && m_state.phase != Phase::running)
            return unchanged();
        if (const auto *sent = std::get_if<Sent>(&event.outcome))
            return left(*sent, leaving);
        m_state.phase = leaving ? Phase::closed : Phase::waiting;
        // Nobody waits for a word on a contact that was deleted meanwhile.
        const auto *refused = std::get_if<Refused>(&event.outcome);
        if (m_circumstances.present)
            say(wordOn(event.outcome), refused ? refused->carrierWords : std::nullopt);
        else
            say({});
        return unchanged();
    }

    Step operator()(const DoubtSettled &event)
    {
        const bool isHead = m_state.queueIDs.value(0) == event.contactId;
        if (isHead && awaitsUser()) {
            say({});
            if (event.left)
                advancePastCurrent(Phase::waiting);
        } else if (event.left && !isHead && m_state.queueIDs.removeOne(event.contactId)) {
            ++m_state.completedCount;
        }
        return does(event.left ? QueueAction::deselect : QueueAction::none);
    }

    /// The contact is no longer served, nor is it recorded or deselected. The queue stays open, so
    /// that the user reads it also of the last one.
    Step operator()(const ServedBefore &event)
    {
        const bool isDue = m_state.phase == Phase::waiting || m_state.phase == Phase::running;
        if (!isDue || m_state.queueIDs.isEmpty())
            return unchanged();
        m_state.queueIDs.removeFirst();
        ++m_state.completedCount;
        m_state.servedAs = event.name;
        if (m_state.queueIDs.isEmpty())
            m_state.phase = Phase::waiting;
        return unchanged();
    }

    /// Whoever is left out comes back behind the others, unless it is stopped.
    Step operator()(const StopRepliesChanged &event)
    {
        if (m_state.phase == Phase::leaving || m_state.phase == Phase::closed)
            return unchanged();
        const QString head = m_state.queueIDs.value(0);
        for (const QString &id : std::exchange(m_state.heldIDs, {})) {
            if (event.waiting.contains(id))
                m_state.heldIDs << id;
            else if (!event.gone.contains(id))
                m_state.queueIDs << id;
        }
        const QString inFront = m_state.phase == Phase::prepared ? head : event.handedOver;
        for (const QString &id : event.waiting) {
            if (id != inFront && m_state.queueIDs.removeOne(id))
                m_state.heldIDs << id;
        }
        if (m_state.queueIDs.value(0) != head)
            say({});
        return unchanged();
    }

    Step operator()(const Removed &event)
    {
        if (!awaitsUser() && m_state.phase != Phase::running)
            return unchanged();
        const QString head = m_state.queueIDs.value(0);
        QSet<QString> leaving(event.ids.begin(), event.ids.end());
        leaving.remove(event.engaged);
        m_state.initialQueueCount -= int(m_state.queueIDs.removeIf(
            [&leaving](const QString &id) { return leaving.contains(id); }));
        if (m_state.queueIDs.value(0) != head)
            say({});
        return unchanged();
    }

    Step operator()(const Closed &)
    {
        const bool underWay = m_state.phase == Phase::running || m_state.phase == Phase::leaving;
        m_state.phase = underWay ? Phase::leaving : Phase::closed;
        return unchanged();
    }

private:
    bool awaitsUser() const
    {
        return m_state.phase == Phase::waiting || m_state.phase == Phase::prepared;
    }

    void say(const Refusal &error, const std::optional<QString> &carrierWords = {})
    {
        m_state.error = error;
        m_state.carrierWords = carrierWords;
    }

    Step startedRun()
    {
        if (!awaitsUser() || m_state.queueIDs.isEmpty())
            return unchanged();
        if (m_circumstances.asksFirst)
            return does(QueueAction::ask);
        m_state.phase = Phase::running;
        say({});
        return does(QueueAction::startRun);
    }

    Step left(const Sent &sent, bool leaving)
    {
        // No run goes on sending what it cannot remember.
        const Phase then = sent.unsaved ? Phase::waiting : Phase::running;
        advancePastCurrent(leaving ? Phase::closed : then);
        if (sent.unsaved)
            say(recordUnsaved);
        return does(QueueAction::deselect);
    }

    void advancePastCurrent(Phase then)
    {
        if (!m_state.queueIDs.isEmpty()) {
            m_state.queueIDs.removeFirst();
            ++m_state.completedCount;
        }
        say({});
        // It stays open for those who are left out, so that the user reads of them.
        const bool isOver = m_state.queueIDs.isEmpty() && m_state.heldIDs.isEmpty();
        const bool isWorked = m_state.queueIDs.isEmpty() && then == Phase::running;
        m_state.phase = isOver ? Phase::closed : isWorked ? Phase::waiting : then;
    }

    Step unchanged() { return does(QueueAction::none); }
    Step does(QueueAction action) { return {std::move(m_state), action}; }

    QueueState m_state;
    Circumstances m_circumstances;
};

} // namespace

Step next(QueueState state, const QueueEvent &event, Circumstances circumstances)
{
    return std::visit(Rules(std::move(state), circumstances), event);
}

} // namespace quenoria
