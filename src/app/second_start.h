#pragma once

namespace quenoria {

/// Starts this program once more, as its demonstration, which goes on when this one ends. One that
/// is open already comes to the front instead.
[[nodiscard]] bool openDemonstration();

} // namespace quenoria
