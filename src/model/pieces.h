#pragma once

#include <functional>
#include <string_view>

namespace quenoria {

/// Takes a file piece by piece, in order.
using TakePiece = std::function<void(std::string_view piece)>;

} // namespace quenoria
