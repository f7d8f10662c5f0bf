#include "messaging/order_state.h"

namespace quenoria {

namespace {

OrderStep ended(SendOutcome outcome, OrderAction action = OrderAction::none)
{
    return {OrderPhase::ended, action, std::move(outcome)};
}

/// The rules, one per event that the phase expects.
struct OrderRules {
    OrderPhase phase;

    OrderStep operator()(const Asked &event) const
    {
        if (phase != OrderPhase::asked)
            return unchanged();
        if (event.underWay || event.leaving)
            return ended(Refused{});
        if (event.doubted)
            return ended(InDoubt{stillInDoubt}, OrderAction::askUser);
        if (event.unsaved)
            return ended(Refused{event.unsaved});
        return {OrderPhase::waiting, OrderAction::begin, {}};
    }

    OrderStep operator()(const IntentWritten &event) const
    {
        if (phase != OrderPhase::waiting || event.failure) // refused: the answer ends the order
            return unchanged();
        return {OrderPhase::handedOver, OrderAction::none, {}};
    }

    OrderStep operator()(const Answered &event) const
    {
        const bool handedOver = phase == OrderPhase::handedOver;
        if (!handedOver && phase != OrderPhase::waiting)
            return unchanged();
        if (std::holds_alternative<Refused>(event.outcome))
            return ended(event.outcome, handedOver ? OrderAction::dropIntent : OrderAction::none);
        if (std::holds_alternative<InDoubt>(event.outcome))
            return ended(event.outcome, OrderAction::askUser);
        if (std::holds_alternative<Abandoned>(event.outcome)) // its intent stays, and asks later
            return ended(event.outcome);
        return {OrderPhase::recording, OrderAction::record, {}};
    }

    OrderStep operator()(const RecordWritten &event) const
    {
        if (phase != OrderPhase::recording)
            return unchanged();
        return ended(Sent{event.failure},
                     event.failure ? OrderAction::none : OrderAction::dropIntent);
    }

    OrderStep unchanged() const { return {phase, OrderAction::none, {}}; }
};

} // namespace

OrderStep next(OrderPhase phase, const OrderEvent &event)
{
    return std::visit(OrderRules{phase}, event);
}

} // namespace quenoria
