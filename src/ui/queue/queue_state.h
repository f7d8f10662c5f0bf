#pragma once

#include "store/send_outcome.h"

#include <QStringList>

#include <variant>

namespace quenoria {

/// Where a queue stands: a value, from which next() makes the one that follows.
struct QueueState {
    enum class Phase {
        waiting,  ///< for the user, on the head of the queue
        prepared, ///< the head's message is in front of the user, who sends and confirms it
        running,  ///< an automatic run works the queue
        leaving,  ///< closed during a run, which ends what it has begun and no more
        closed,
    };

    QStringList queueIDs; ///< contacts still to handle, the current one first
    int completedCount = 0;
    int initialQueueCount = 0;
    Phase phase = Phase::waiting;
    Refusal error;
    std::optional<QString> carrierWords = {}; ///< of an error that a carrier gave
    QString servedAs = {};    ///< name under which the one last passed over had been served
    QStringList heldIDs = {}; ///< left out for the time being: they have answered STOP
    bool operator==(const QueueState &) const = default;
};

/// The queue was built.
struct Opened {
    QStringList queueIDs;
};
struct PrimaryPressed {};
/// What the preparation that was asked for said.
struct PrepareAnswered {
    Refusal refusal;
};
struct Confirmed {};
struct Skipped {};
/// The switch for automatic sending went from off to on.
struct SwitchedOn {};
/// A run is about to take the head of the queue.
struct TurnReached {};
/// What became of the automatic send that was asked for, recorded when it went.
struct SendAnswered {
    SendOutcome outcome;
};
/// The user has decided what became of a message that may have left.
struct DoubtSettled {
    QString contactId;
    bool left = false; ///< it did, and is recorded
};
/// The head's recipient was served earlier in this queue, as another contact.
struct ServedBefore {
    QString name;
};
/// The answers that say STOP are others than before.
struct StopRepliesChanged {
    QStringList waiting;     ///< contacts of the queue whose answer waits for the user's decision
    QStringList gone;        ///< contacts that are stopped or deleted by now
    QString handedOver = {}; ///< contact whose message a carrier has
};
/// The user leaves contacts out of this queue, without a word on their selection.
struct Removed {
    QStringList ids;
    QString engaged = {}; ///< contact whose message is in front of the user, or under way
};
/// The user wants the run in spite of what he was asked.
struct RunInsisted {};
struct Closed {};

using QueueEvent = std::variant<Opened, PrimaryPressed, PrepareAnswered, Confirmed, Skipped,
                                SwitchedOn, TurnReached, SendAnswered, DoubtSettled, ServedBefore,
                                StopRepliesChanged, Removed, RunInsisted, Closed>;

/// What the rules ask about the world around the queue.
struct Circumstances {
    bool automatic = false; ///< the switch for automatic sending is on
    bool present = true;    ///< the head of the queue is a contact of the store
    bool asksFirst = false; ///< there is something to ask before a run
};

/// What is to be done about the contact that was the head of the queue before the event, or that
/// the event names.
enum class QueueAction {
    none,
    prepare,  ///< and hand the answer back
    ask,      ///< the user whether a run is to begin
    startRun, ///< one that begins by reaching its turn
    send,     ///< automatically, and hand the answer back
    record,   ///< the prepared send, and take the contact out of the selection
    deselect,
};

struct Step {
    QueueState state;
    QueueAction action = QueueAction::none;
    bool operator==(const Step &) const = default;
};

/// The rules of both queues. An event that the phase has no use for (a second click, an answer
/// that comes too late) changes nothing.
[[nodiscard]] Step next(QueueState state, const QueueEvent &event, Circumstances circumstances);

} // namespace quenoria
