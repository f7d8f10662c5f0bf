#pragma once

#include <QString>

#include <cerrno>

namespace quenoria {

/// Why the system refused, for the end of a sentence: the reasons that a disk or a folder gives
/// are said in French, any other in the system's own words.
///
///   ENOSPC -> "il n’y a plus de place sur le disque"
[[nodiscard]] QString systemReason(int error = errno);

/// The same of what the toolkit gives as the system's own words.
[[nodiscard]] QString systemReason(const QString &words);

} // namespace quenoria
