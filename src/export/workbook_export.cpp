#include "export/workbook_export.h"

#include "export/sheet_writer.h"
#include "import/import_error.h"
#include "platform/system_reason.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr double writtenShare = 0.6; ///< of the time, before the library packs the rows

constexpr std::size_t rowsBetweenLooks = 512;
constexpr qint64 pieceSize = 256L * 1024;

void tell(const ImportWatch &watch, double share)
{
    if (watch.stop.stop_requested())
        throw ImportAbandoned();
    if (watch.progress)
        watch.progress(share);
}

void addRows(SheetWriter &writer, const ExportTable &table, const ImportWatch &watch)
{
    std::vector<ExportCell> cells;
    for (std::size_t row = 0; row < table.rows; ++row) {
        if (row % rowsBetweenLooks == 0)
            tell(watch, writtenShare * double(row) / double(table.rows));
        table.fill(row, cells);
        writer.add(cells);
    }
}

Refusal copyTo(const QString &path, const QString &source, FileWriter &files)
{
    QFile workbook(source);
    if (!workbook.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return systemReason(workbook.errorString());
    return files.writePieces(path, [&workbook](const TakePiece &take) {
        QByteArray piece(pieceSize, Qt::Uninitialized);
        qint64 size = workbook.read(piece.data(), pieceSize);
        for (; size > 0; size = workbook.read(piece.data(), pieceSize))
            take({piece.constData(), std::size_t(size)});
        if (size < 0)
            throw DraftLost{systemReason(workbook.errorString())};
    });
}

} // namespace

Refusal writeWorkbook(const ExportTable &table, const QString &path, FileWriter &files,
                      const ImportWatch &watch, std::size_t &cutTexts)
{
    const QTemporaryDir folder;
    if (!folder.isValid())
        return systemReason(folder.errorString());
    const QString draft = folder.filePath(u"export.xlsx"_s);
    SheetWriter writer(draft, table);
    addRows(writer, table, watch);
    for (const ExportTable &next : table.next) {
        writer.turnTo(next);
        addRows(writer, next, watch);
    }
    cutTexts = writer.cutTexts();
    tell(watch, writtenShare);
    if (Refusal refusal = writer.close())
        return refusal;
    tell(watch, 1);
    return copyTo(path, draft, files);
}

} // namespace quenoria
