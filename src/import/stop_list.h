#pragma once

#include "import/import_watch.h"
#include "model/id_set.h"

#include <QString>

#include <string_view>

namespace quenoria {

class ProspectStore;

/// The numbers and addresses that a STOP list names.
struct StopList {
    IdSet keys;         ///< mobiles as ten digits, addresses as "email:" and the address
    IdSet otherNumbers; ///< of ten digits and more, that no import would take
};

/// Takes what a UTF-8 text of any shape names.
///
///   "+33 6 39 98 00 01 ; 07 00 00 00 02" -> 0639980001, 0700000002
///   "Anne <Anne@Example.org>"            -> email:anne@example.org
void takeStops(std::string_view text, StopList &list);

/// Reads every cell of an .xlsx workbook, or every line of a .csv or .txt file. On any thread.
/// Throws an ImportFailure, or ImportAbandoned.
[[nodiscard]] StopList readStopList(const QString &path, const ImportWatch &watch = {});

/// Whom a STOP list concerns.
struct StopMatches {
    IdSet contacts;       ///< ids of those that are to be stopped
    IdSet alreadyStopped; ///< ids
    IdSet unknown;        ///< keys that no contact has
};

[[nodiscard]] StopMatches matchStops(const StopList &list, const ProspectStore &store);

} // namespace quenoria
