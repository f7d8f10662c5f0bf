#pragma once

#include "model/records.h"

namespace quenoria {

/// What a first start begins with.
[[nodiscard]] MessageTemplate defaultMessage();
[[nodiscard]] EmailTemplate defaultEmailTemplate();
[[nodiscard]] std::vector<DepartmentInfo> defaultDepartments();

/// Number proposed for test messages until the user types one; reserved for fiction.
[[nodiscard]] QString defaultTestNumber();

/// Title and business name that mark a default SMS template left by an earlier edition.
[[nodiscard]] QString legacyMessageTitle();
[[nodiscard]] QString legacyBusinessName();

/// The one contact id that a new tracking file marks as already contacted, and when.
[[nodiscard]] QString seededContactID();
[[nodiscard]] std::optional<Instant> seededSendDate();

} // namespace quenoria
