#pragma once

#include "model/instant.h"

#include <QDateTime>
#include <QTimeZone>

namespace quenoria {

/// What a clock on the wall of the zone showed, counted from the first of January 1970 in whole
/// seconds.
[[nodiscard]] inline std::chrono::milliseconds localTime(Instant instant, const QTimeZone &zone)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(instant.time_since_epoch());
    const int offset = zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(seconds.count(), Qt::UTC));
    return seconds + std::chrono::seconds(offset);
}

} // namespace quenoria
