#include "import/excel_workbook_reader.h"

#include "import/import_error.h"
#include "import/workbook_package.h"
#include "import/worksheet_xml_parser.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unsupportedFormat = u"Choisissez un fichier Excel au format .xlsx."_s;

void read(const QString &path, WorkbookSink &sink, const ImportWatch &watch)
{
    WorkbookPackage package(path, watch);
    const auto strings = std::make_shared<SharedStrings>();
    if (const auto &part = package.sharedStrings())
        *strings = SharedStringsXMLParser::parse(package.open(*part), part->size);
    sink.beginWorkbook({strings, package.inflatedBytes()});
    for (const WorkbookPackage::Part &part : package.worksheets()) {
        sink.beginSheet();
        WorksheetXMLParser(*strings).parse(package.open(part),
                                           [&sink](const auto &row) { sink.row(row); });
    }
}

} // namespace

void ExcelWorkbookReader::readSheets(const QString &path, WorkbookSink &sink,
                                     const ImportWatch &watch)
{
    if (QFileInfo(path).suffix().compare(u"xlsx", Qt::CaseInsensitive) != 0)
        throw ReaderError(unsupportedFormat);
    try {
        read(path, sink, watch);
    } catch (const std::bad_alloc &) {
        throw OutOfMemory();
    }
}

} // namespace quenoria
