#pragma once

namespace quenoria {

/// Gives the system back what the reading of large files has left free.
void returnFreeMemory();

} // namespace quenoria
