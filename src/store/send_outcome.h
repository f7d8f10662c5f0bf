#pragma once

#include "store/refusal.h"

#include <variant>

namespace quenoria {

/// The carrier took the message. When its record is not on the disk yet, unsaved says why.
struct Sent {
    Refusal unsaved;
    bool operator==(const Sent &) const = default;
};

/// Nothing left. Without a message, the order was given up and nobody waits for a word on it.
struct Refused {
    Refusal message;

    /// Present when it was the carrier that refused: its own words, or nothing more than the
    /// message tells.
    std::optional<QString> carrierWords = {};
    bool operator==(const Refused &) const = default;
};

/// The message may have left: it is neither recorded nor sent again before the user has decided.
struct InDoubt {
    QString message; ///< what is known of it, possibly nothing
    bool operator==(const InDoubt &) const = default;
};

/// Whoever was to learn the outcome is gone. Nothing was recorded; a message that a carrier had is
/// in doubt, by its intent.
struct Abandoned {
    bool operator==(const Abandoned &) const = default;
};

using SendOutcome = std::variant<Sent, Refused, InDoubt, Abandoned>;

} // namespace quenoria
