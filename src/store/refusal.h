#pragma once

#include <QString>

#include <optional>

namespace quenoria {

/// Why an operation did not do what it was asked, in French, to be shown unchanged. Absent: done.
using Refusal = std::optional<QString>;

} // namespace quenoria
