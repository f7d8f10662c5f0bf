#pragma once

#include "platform/color_scheme.h"

#include <optional>

namespace quenoria {

/// Keeps the application light or dark: as it was asked for at the start, else as the desktop is,
/// from one moment to the next.
void keepAppearance(std::optional<bool> dark, ColorSchemeSource &desktop);

} // namespace quenoria
