#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace quenoria {

/// Whether a file panel may open in the folder: it is there, and no view of the running system
/// (/proc), whose listing changes while it is read. Blocks as long as the folder's disk does.
[[nodiscard]] bool mayBrowse(const QString &folder);

/// The wanted folder where it answers in time, else the other one. A folder that does not answer,
/// on a network that is gone for instance, is left to a thread that nobody waits for.
[[nodiscard]] QString startFolder(const QString &wanted, const QString &otherwise,
                                  std::chrono::milliseconds patience,
                                  const std::function<bool(const QString &)> &mayOpen = mayBrowse);

} // namespace quenoria
