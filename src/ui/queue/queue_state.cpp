#include "ui/queue/queue_state.h"

namespace quenoria {

namespace {

using Phase = QueueState::Phase;

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
        m_state.error = event.refusal;
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
        if (!event.refusal) {
            advancePastCurrent(leaving ? Phase::closed : Phase::running);
            return does(QueueAction::record);
        }
        m_state.phase = leaving ? Phase::closed : Phase::waiting;
        // Nobody waits for a word on a contact that was deleted meanwhile.
        m_state.error = m_circumstances.present ? event.refusal : std::nullopt;
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

    Step startedRun()
    {
        if (!awaitsUser() || m_state.queueIDs.isEmpty())
            return unchanged();
        m_state.phase = Phase::running;
        m_state.error = {};
        return does(QueueAction::startRun);
    }

    void advancePastCurrent(Phase then)
    {
        if (!m_state.queueIDs.isEmpty()) {
            m_state.queueIDs.removeFirst();
            ++m_state.completedCount;
        }
        m_state.error = {};
        m_state.phase = m_state.queueIDs.isEmpty() ? Phase::closed : then;
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
