#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quenoria {

/// What a column of a contact table holds.
enum class ColumnRole { name, mobile, email, department, town, postcode, profession };

/// The column titles that are understood, spelt as normalizedHeader() gives them.
std::optional<ColumnRole> columnRole(std::string_view cell);

/// Reduces a UTF-8 text to words of a to z and 0 to 9 with one space between them.
///
///   "Nom de l’entreprise" -> "nom de l entreprise"
///   "  CODE POSTAL :"     -> "code postal"
///   "Téléphone-mobile"    -> "telephone mobile"
[[nodiscard]] std::string normalizedHeader(std::string_view text);

} // namespace quenoria
