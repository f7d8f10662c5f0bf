#pragma once

#include <functional>
#include <stop_token>

namespace quenoria {

/// Lets a long read be followed and abandoned from another thread. Both members may be empty.
struct ImportWatch {
    std::stop_token stop; ///< once requested, the read ends in ImportAbandoned

    /// Told what share of the workbook has been read, from 0 to 1, on the reading thread.
    std::function<void(double share)> progress;
};

} // namespace quenoria
