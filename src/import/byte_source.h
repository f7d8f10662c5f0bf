#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace quenoria {

/// Fills a buffer with the next bytes of a document and tells how many; 0 at its end.
using ByteSource = std::function<std::size_t(std::span<char>)>;

} // namespace quenoria
