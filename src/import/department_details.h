#pragma once

#include "model/records.h"

#include <optional>
#include <string_view>

namespace quenoria {

/// The department that a row's two UTF-8 cells tell of, or nothing.
///
///   "Finistère"      , ""      -> 29 Finistère
///   "29 - Brest"     , ""      -> 29 Brest
///   "Paris"          , "75001" -> 75 Paris
///   ""               , "97400" -> 974 Département 974
///   "Quelque part"   , "7"     -> nothing
[[nodiscard]] std::optional<DepartmentInfo> departmentDetails(std::string_view department,
                                                              std::string_view postcode);

} // namespace quenoria
