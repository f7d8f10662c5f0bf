#pragma once

#include <QDateTime>

namespace quenoria {

// When French custom has prospecting messages sent: from 8:00 to 20:00, and neither on a Sunday nor
// on one of the eleven public holidays of the Code du travail (article L3133-1).

/// In the Gregorian calendar.
[[nodiscard]] QDate easterSunday(int year);

[[nodiscard]] bool isPublicHoliday(QDate date);

/// Of a local time, in its own zone.
[[nodiscard]] bool isUsualSendingHour(const QDateTime &local);

/// The time itself if it is one, else the next 8:00 of a usual day.
[[nodiscard]] QDateTime nextUsualSendingHour(const QDateTime &local);

} // namespace quenoria
