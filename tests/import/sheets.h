#pragma once

#include "import/workbook_sink.h"

#include <QStringList>

#include <vector>

namespace quenoria::test {

/// Keeps everything that a reader gives: sheets of rows of cell texts.
struct Sheets : WorkbookSink {
    std::vector<std::vector<QStringList>> sheets;

    void beginSheet() override { sheets.emplace_back(); }
    void row(const WorksheetRow &row) override
    {
        QStringList cells;
        for (std::size_t column = 0; column < row.size(); ++column)
            cells << QString::fromUtf8(row[column].data(), qsizetype(row[column].size()));
        sheets.back().push_back(cells);
    }
};

} // namespace quenoria::test
