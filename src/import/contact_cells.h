#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace quenoria {

/// The French mobile number in a UTF-8 cell text, as ten digits.
///
///   "+33 6 39 98 00 01"               -> "0639980001"
///   "639980001"                       -> "0639980001"  (a number lost its leading zero)
///   "02 98 12 34 56 / 06 39 98 00 01" -> "0639980001"
///   "02 98 12 34 56"                  -> nothing
[[nodiscard]] std::optional<QString> mobileIn(std::string_view cell);

/// The first e-mail address in a UTF-8 cell text, in lower case.
///
///   "Anne <Anne@Example.org>" -> "anne@example.org"
///   "anne@example"            -> nothing
[[nodiscard]] std::optional<QString> emailIn(std::string_view cell);

} // namespace quenoria
