#pragma once

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace quenoria {

/// The French mobile number in a UTF-8 cell text, as ten digits.
///
///   "+33 6 39 98 00 01"               -> "0639980001"
///   "639980001"                       -> "0639980001"  (a number lost its leading zero)
///   "02 98 12 34 56 / 06 39 98 00 01" -> "0639980001"
///   "02 98 12 34 56"                  -> nothing
[[nodiscard]] std::optional<QString> mobileIn(std::string_view cell);

/// Every French mobile number that stands among other text, as ten digits.
[[nodiscard]] std::vector<QString> mobilesWithin(std::string_view cell);

/// A number of ten digits and more, of whatever network, its French prefix folded.
///
///   "+33 2 98 00 00 01" -> "0298000001"
///   "12/03/2026"        -> nothing
[[nodiscard]] std::optional<QString> numberIn(std::string_view cell);

/// The first e-mail address in a UTF-8 cell text, in lower case.
///
///   "Anne <Anne@Example.org>" -> "anne@example.org"
///   "anne@example"            -> nothing
[[nodiscard]] std::optional<QString> emailIn(std::string_view cell);

} // namespace quenoria
