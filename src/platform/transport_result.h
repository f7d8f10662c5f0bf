#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// What became of a message that a transport did not report as taken.
enum class Fate {
    kept,        ///< it has certainly not left
    perhapsSent, ///< a time-out, a killed program, a lost service: it may have left
};

/// Why a transport did not take a message; the user may read the text, which may be missing.
struct TransportFailure {
    std::optional<QString> message;
    Fate fate = Fate::kept;
};

/// Absent: the transport took it.
using TransportResult = std::optional<TransportFailure>;

} // namespace quenoria
