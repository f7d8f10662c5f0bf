#pragma once

#include "model/records.h"

namespace quenoria {

/// Every confirmed send of a record of either channel, oldest first. Records made before histories
/// existed hold one date only.
template <typename Status>
std::vector<Instant> historyFrom(const Status *status)
{
    if (!status)
        return {};
    if (status->sendHistory && !status->sendHistory->empty())
        return *status->sendHistory;
    if (status->sent)
        return {status->sentAt};
    return {};
}

/// How many those are, found without copying them.
template <typename Status>
std::size_t sendCount(const Status &status)
{
    if (status.sendHistory && !status.sendHistory->empty())
        return status.sendHistory->size();
    return status.sent ? 1 : 0;
}

} // namespace quenoria
