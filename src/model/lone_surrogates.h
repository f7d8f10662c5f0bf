#pragma once

#include <cstddef>
#include <string_view>

namespace quenoria {

/// Whether half of a character is escaped alone ("\ud83d" without its like) in the JSON text.
[[nodiscard]] bool hasLoneSurrogate(std::string_view json);

/// Such a half stands for no character: it becomes the sign for that, of the same length.
void replaceLoneSurrogates(char *json, std::size_t size);

} // namespace quenoria
