#include "import/excel_workbook_reader.h"

#include "import/import_error.h"
#include "import/workbook_package.h"
#include "import/worksheet_xml_parser.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unsupportedFormat = u"Choisissez un fichier Excel au format .xlsx."_s;

} // namespace

void ExcelWorkbookReader::readSheets(const QString &path, WorkbookSink &sink,
                                     const ImportWatch &watch)
{
    if (QFileInfo(path).suffix().compare(u"xlsx", Qt::CaseInsensitive) != 0)
        throw ReaderError(unsupportedFormat);
    WorkbookPackage package(path, watch);
    SharedStrings sharedStrings;
    if (const auto &part = package.sharedStrings())
        sharedStrings = SharedStringsXMLParser::parse(package.open(*part), part->size);
    for (const WorkbookPackage::Part &part : package.worksheets()) {
        sink.beginSheet();
        WorksheetXMLParser(sharedStrings).parse(package.open(part), [&sink](const auto &row) {
            sink.row(row);
        });
    }
}

} // namespace quenoria
