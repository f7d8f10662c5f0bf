#pragma once

#include "app/command_line.h"
#include "platform/platform.h"

#include <functional>

namespace quenoria {

class SingleInstance;

/// Makes the data folder, or takes the one that is there and closes it to other users; then owns
/// it, and asks the user until every data file can be read. Gives what to say instead of starting;
/// another owner is asked to open this workbook, when it is not empty.
[[nodiscard]] std::optional<Answer>
enterDataFolder(const Platform &platform, SingleInstance &instance, const QString &workbook);

/// Runs what reads the data until the memory suffices for it; false when the user gives up.
[[nodiscard]] bool openData(const std::function<void()> &read, const Platform &platform);

} // namespace quenoria
