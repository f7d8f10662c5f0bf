#pragma once

#include "export/export_table.h"
#include "store/prospect_store.h"

#include <QDate>

namespace quenoria {

/// These contacts with all that is known of them. An import takes each row for the contact that it
/// tells of: a number or an address that it would read otherwise stands in a column of its own,
/// which no import looks at.
[[nodiscard]] ExportTable contactTable(const ProspectStore &store,
                                       const std::vector<Prospect> &contacts,
                                       const QTimeZone &zone);

/// Every recorded send of these days, both included, of both channels, earliest first.
[[nodiscard]] ExportTable sendTable(const ProspectStore &store, QDate first, QDate last,
                                    const QTimeZone &zone);

/// Everybody who wants no more messages, those included who are no contacts.
[[nodiscard]] ExportTable stopTable(const ProspectStore &store, const QTimeZone &zone);

} // namespace quenoria
