#pragma once

#include "app/command_line.h"
#include "platform/platform.h"

#include <functional>

namespace quenoria {

class SingleInstance;

/// Makes the data folder, or takes the one that is there and closes it to other users; then owns
/// it. Gives what to say instead of starting; another owner is asked to open this workbook, when it
/// is not empty.
[[nodiscard]] std::optional<Answer>
enterDataFolder(const Platform &platform, SingleInstance &instance, const QString &workbook);

/// Runs what reads the data until the memory suffices for it; false when the user gives up.
[[nodiscard]] bool openData(const std::function<void()> &read, const Platform &platform);

/// The data files once a store may be made of them.
enum class DataFiles {
    asTheyWere,
    restored,   ///< by a restore that was decided on, in this process or in one that was killed
    outOfReach, ///< and the user does not want to try again
};

/// Completes a restore, then asks the user until every data file can be read.
[[nodiscard]] DataFiles prepareDataFiles(const Platform &platform);

} // namespace quenoria
