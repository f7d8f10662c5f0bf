#pragma once

#include "store/send_outcome.h"

#include <optional>

namespace quenoria {

/// Why no message goes to a contact to whom one may have left.
inline const QString stillInDoubt =
    QStringLiteral("Un envoi précédent à ce contact est peut-être parti : répondez d’abord à la "
                   "question posée à son sujet.");

/// How far an order to send one message has come.
enum class OrderPhase {
    asked,      ///< nothing was looked at yet
    waiting,    ///< for its turn; it can be given up
    handedOver, ///< its intent is on the disk, the carrier has the message
    recording,  ///< the carrier took the message
    ended,
};

/// The order is about to begin.
struct Asked {
    bool underWay = false; ///< the same contact is already being sent to on that channel
    bool doubted = false;  ///< an earlier message to it there waits for the user's decision
    bool leaving = false;  ///< the application ends
    Refusal unsaved = {};  ///< an earlier send could not be recorded on the disk
};
/// The message is complete and about to go; says why its intent could not be written.
struct IntentWritten {
    Refusal failure;
};
/// What the checks or the carrier said.
struct Answered {
    SendOutcome outcome;
};
/// The send stands in the history; says why it is not on the disk.
struct RecordWritten {
    Refusal failure;
};

using OrderEvent = std::variant<Asked, IntentWritten, Answered, RecordWritten>;

enum class OrderAction {
    none,
    begin, ///< wait for the turn, then check and hand over
    askUser,
    record,
    dropIntent,
};

struct OrderStep {
    OrderPhase phase = OrderPhase::asked;
    OrderAction action = OrderAction::none;
    std::optional<SendOutcome> outcome = {}; ///< of an order that has ended
    bool operator==(const OrderStep &) const = default;
};

/// The rules of an order: what follows from an event, and what is to be done about it. An event
/// that the phase does not expect changes nothing.
[[nodiscard]] OrderStep next(OrderPhase phase, const OrderEvent &event);

} // namespace quenoria
