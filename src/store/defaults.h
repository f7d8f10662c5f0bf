#pragma once

#include "model/records.h"

namespace quenoria {

/// What a first start begins with. The templates hold blanks where the user presents himself, so
/// that nobody sends the presentation of somebody else.
[[nodiscard]] MessageTemplate defaultMessage();
[[nodiscard]] EmailTemplate defaultEmailTemplate();
[[nodiscard]] std::vector<DepartmentInfo> defaultDepartments();

/// Number proposed for test messages until the user types one; reserved for fiction.
[[nodiscard]] QString defaultTestNumber();

/// Title and invented business names that mark a default SMS template left by an earlier edition.
[[nodiscard]] QString legacyMessageTitle();
[[nodiscard]] QStringList legacyBusinessNames();

/// The one contact id that a new tracking file marks as already contacted, and when.
[[nodiscard]] QString seededContactID();
[[nodiscard]] std::optional<Instant> seededSendDate();

} // namespace quenoria
