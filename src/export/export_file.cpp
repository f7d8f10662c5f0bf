#include "export/export_file.h"

#include "export/csv_export.h"
#include "export/sheet_writer.h"
#include "export/workbook_export.h"
#include "import/import_error.h"

using namespace Qt::StringLiterals;

namespace quenoria {

ExportOutcome writeExport(const ExportTable &table, const ExportTarget &target, FileWriter &files,
                          const ImportWatch &watch)
{
    ExportOutcome outcome;
    outcome.rows = table.rows;
    try {
        if (target.format == ExportFormat::csv)
            outcome.failure = writeCsv(table, target.path, files, watch);
        else
            outcome.failure = writeWorkbook(table, target.path, files, watch, outcome.cutTexts);
    } catch (const ImportAbandoned &) {
        outcome.stopped = true;
    } catch (const DraftLost &lost) {
        outcome.failure = lost.reason;
    } catch (const std::bad_alloc &) {
        outcome.failure = u"la mémoire disponible ne suffit pas."_s;
    }
    return outcome;
}

} // namespace quenoria
