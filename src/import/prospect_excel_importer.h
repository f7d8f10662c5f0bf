#pragma once

#include "import/import_error.h"
#include "import/import_watch.h"
#include "model/collections.h"
#include "model/records.h"

#include <map>
#include <vector>

namespace quenoria {

class RowListener;

/// What a workbook would bring, before anything is changed.
struct ProspectImportAnalysis {
    std::vector<Prospect> prospects;         ///< new contacts, in workbook order
    std::vector<DepartmentInfo> departments; ///< those of the new contacts, sorted by code
    std::map<QString, QString> emailUpdates; ///< contact id → address, on rows already known
    int duplicates = 0;                      ///< rows already in the store or in the workbook
    int rowsWithoutMobile = 0;               ///< rows with neither a mobile nor an address
    int invalidRows = 0;                     ///< rows without a department
    int headerRows = 0;                      ///< header rows recognised in the whole workbook
};

/// Turns the tables of a workbook into contacts.
class ProspectExcelImporter {
public:
    /// Reads the workbook without touching the store: may run on any thread. existingIDs are the
    /// duplicate keys of the contacts already known. A listener is told what becomes of each row.
    /// Throws an ImportFailure, or ImportAbandoned.
    static ProspectImportAnalysis analyze(const QString &workbookPath, const IdSet &existingIDs,
                                          const ImportWatch &watch = {},
                                          RowListener *listener = nullptr);
};

} // namespace quenoria
