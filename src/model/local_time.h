#pragma once

#include "model/instant.h"

#include <QDateTime>
#include <QTimeZone>

namespace quenoria {

/// The instant as the calendar and the clocks of the zone tell it.
[[nodiscard]] inline QDateTime localDateTime(Instant instant, const QTimeZone &zone)
{
    return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), zone);
}

} // namespace quenoria
