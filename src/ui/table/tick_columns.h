#pragma once

#include "ui/table/contact_columns.h"

namespace quenoria {

/// Contacts to be deleted: the table's own ticks.
[[nodiscard]] ContactColumn deletionColumn();

[[nodiscard]] ContactColumn stopColumn();

} // namespace quenoria
