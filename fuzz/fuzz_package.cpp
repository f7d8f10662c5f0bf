// Any bytes as a workbook: the whole analysis ends in a result or in an error of its own.

#include "import/prospect_excel_importer.h"

#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static const QTemporaryDir folder;
    QFile workbook(folder.filePath(QStringLiteral("fuzz.xlsx")));
    workbook.open(QFile::WriteOnly);
    workbook.write(reinterpret_cast<const char *>(data), qint64(size));
    workbook.close();
    try {
        (void)quenoria::ProspectExcelImporter::analyze(workbook.fileName(), {});
    } catch (const quenoria::ImportFailure &) {
    }
    return 0;
}
