#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <chrono>
#include <optional>

namespace quenoria {

/// An absolute point in time, to the millisecond, independent of any time zone.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Length of an instant's text form in the files.
inline constexpr qsizetype instantTextLength = 20;

/// "2026-08-09T08:45:00Z": UTC, truncated (never rounded up) to the whole second.
[[nodiscard]] QByteArray instantText(Instant instant);

/// The same, over instantTextLength characters.
void writeInstant(Instant instant, char *to);

/// Reads the form that instantText() writes and no other: a fraction, an offset, a lower-case
/// letter or a day that the calendar lacks gives nothing.
///
///   "2026-08-09T08:45:00Z"      -> that instant
///   "2026-08-09T08:45:00.5Z"    -> nothing
///   "2026-08-09T08:45:00+02:00" -> nothing
///   "2026-02-30T08:45:00Z"      -> nothing
[[nodiscard]] std::optional<Instant> instantFromText(QByteArrayView text);

} // namespace quenoria
