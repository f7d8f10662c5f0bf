#pragma once

#include "model/records.h"

#include <QDate>

namespace quenoria {

/// The month of the quota in which a local day lies: "2026-03".
[[nodiscard]] QString quotaMonth(QDate local);

/// What the quota counts of a contact: the digits of its number, else its id.
[[nodiscard]] QString quotaRecipient(const Prospect &contact);

} // namespace quenoria
