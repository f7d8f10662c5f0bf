#pragma once

#include "model/records.h"

#include <span>

namespace quenoria {

/// Every confirmed send of a record of either channel, oldest first, where it lies; none without a
/// record. Records made before histories existed hold one date only.
template <typename Status>
[[nodiscard]] std::span<const Instant> recordedSends(const Status *status)
{
    if (status && status->sendHistory && !status->sendHistory->empty())
        return *status->sendHistory;
    if (status && status->sent)
        return {&status->sentAt, 1};
    return {};
}

/// Their copy.
template <typename Status>
std::vector<Instant> historyFrom(const Status *status)
{
    const auto sends = recordedSends(status);
    return {sends.begin(), sends.end()};
}

} // namespace quenoria
