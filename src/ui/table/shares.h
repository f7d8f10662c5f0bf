#pragma once

#include <cstddef>
#include <functional>

namespace quenoria {

/// How many shares work on so many contacts is worth: one for each core, or one in all.
[[nodiscard]] std::size_t sharesOf(std::size_t contacts);

/// Does each share of the work on a thread of its own, the last on the caller's, and waits for all.
/// Throws what the first of them threw.
void inShares(
    std::size_t contacts,
    const std::function<void(std::size_t share, std::size_t begin, std::size_t end)> &work);

} // namespace quenoria
