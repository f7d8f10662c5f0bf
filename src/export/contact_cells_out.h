#pragma once

#include "model/contact_rules.h"
#include "model/records.h"

namespace quenoria {

/// A department as a cell that an import understands, and of which a spreadsheet makes no number:
///
///   "01", "Ain" -> "01 - Ain"
[[nodiscard]] inline QString departmentCell(const QString &code, const QString &name)
{
    return code.isEmpty() ? QString() : code + QStringLiteral(" - ") + name;
}

/// The number in pairs, which no spreadsheet takes for a number and shortens.
[[nodiscard]] inline QString shownPhone(const Prospect &contact)
{
    return contact.phone.isEmpty() ? QString() : formatPhone(normalizePhone(contact.phone));
}

} // namespace quenoria
