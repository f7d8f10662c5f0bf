#pragma once

#include "platform/transport_result.h"

namespace quenoria {

/// Why no carrier may be given the number and the text; nothing when it may. A modem dials the
/// digits behind letters, and the bus cuts a text at a null character.
[[nodiscard]] TransportResult unfitForSms(const QString &handle, const QString &text);

/// "+33639980001" and "06 39 98 00 01" are one number.
[[nodiscard]] bool isSameNumber(const QString &one, const QString &other);

} // namespace quenoria
