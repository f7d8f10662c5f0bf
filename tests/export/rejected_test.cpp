#include "export/export_file.h"
#include "export/rejected_export.h"
#include "import/excel_workbook_reader.h"
#include "import/sheets.h"
#include "support/fake_desktop.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// A row as a reader gives it, with every other cell shared.
void put(RejectedRows &rows, const QStringList &texts, const QString &reason = {})
{
    static std::vector<std::string> utf8;
    utf8.reserve(1000); // shared texts stay where they are
    std::vector<WorksheetCell> cells;
    for (qsizetype column = 0; column < texts.size(); ++column) {
        utf8.push_back(texts[column].toStdString());
        if (!utf8.back().empty())
            cells.push_back({std::uint32_t(column), column % 2 == 1, utf8.back()});
    }
    const WorksheetRow row(cells, 1);
    reason.isEmpty() ? rows.beginTable(row) : rows.add(row, reason);
}

TEST(RejectedRows, AreWrittenUnderTheirHeadersWithTheReason)
{
    FakeDesktop desktop;
    const auto written = [&desktop](const std::shared_ptr<RejectedRows> &rows) {
        const QString path = desktop.folders.root.filePath(u"r.xlsx"_s);
        const ExportOutcome outcome =
            writeExport(rejectedTable(rows), {path, ExportFormat::workbook}, desktop.files);
        EXPECT_FALSE(outcome.failure);
        Sheets sheets;
        ExcelWorkbookReader::readSheets(path, sheets);
        QStringList lines;
        for (const QStringList &row : sheets.sheets.front())
            lines << row.join(u'|');
        return lines;
    };
    const auto first = std::make_shared<RejectedRows>();
    put(*first, {u"Nom"_s, u"Mobile"_s});
    put(*first, {u"Nom"_s, u"Mobile"_s, u"CP"_s}); // the one above had no rejected row
    put(*first, {u"=1+1"_s, u"0298000001"_s, u"01000"_s, u"note"_s}, u"a"_s);
    put(*first, {u"Mail"_s, u"Nom"_s});
    put(*first, {{}, u"é"_s}, u"b"_s);
    put(*first, {u"Nom"_s, u"Mail"_s}); // nor has this one
    EXPECT_EQ(written(first),
              (QStringList{u"Nom|Mobile|CP||Motif"_s, u"=1+1|0298000001|01000|note|a"_s,
                           u"Mail|Nom|||Motif"_s, u"|é|||b"_s}));

    const auto again = std::make_shared<RejectedRows>();
    put(*again, {u"Nom"_s, u"Motif"_s, u"Mobile"_s});
    put(*again, {u"A"_s, u"old"_s}, u"new"_s);
    EXPECT_EQ(written(again), (QStringList{u"Nom|Motif|Mobile"_s, u"A|new"_s}));

    const auto widest = std::make_shared<RejectedRows>();
    QStringList wide(16'383);
    put(*widest, wide << u"Nom"_s); // in XFD
    put(*widest, {u"A"_s}, u"c"_s);
    EXPECT_TRUE(written(widest).last().endsWith(u"|c"_s));
}

} // namespace
