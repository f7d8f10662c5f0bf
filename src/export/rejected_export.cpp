#include "export/rejected_export.h"

#include "export/sheet_writer.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::uint32_t lastColumn = 16'383; ///< XFD
constexpr int cellWidth = 22;
constexpr int reasonWidth = 60;
constexpr std::string_view reasonTitle = "Motif";

struct Rejected {
    std::shared_ptr<const RejectedRows> rows;
    std::uint32_t reasonColumn;
    std::size_t columns = 0;
};

QString shownTitle() { return QString::fromLatin1(reasonTitle.data(), reasonTitle.size()); }

/// Where the reasons stand already when such a workbook comes back, else after all that is used.
std::uint32_t reasonColumn(const RejectedRows &rows)
{
    std::optional<std::uint32_t> known;
    bool isTaken = false;
    for (std::size_t line = 0; line < rows.lines(); ++line) {
        if (!rows.isHeader(line))
            continue;
        rows.forEachCell(line, [&](std::uint32_t column, std::string_view text) {
            if (line == 0 && text == reasonTitle)
                known = column;
            isTaken = isTaken || (known == column && text != reasonTitle);
        });
    }
    return known && !isTaken ? *known : std::min(rows.columns(), lastColumn);
}

void fillLine(const Rejected &rejected, std::size_t line, std::vector<ExportCell> &cells)
{
    cells.assign(rejected.columns, {});
    rejected.rows->forEachCell(line, [&](std::uint32_t column, std::string_view text) {
        if (column < cells.size())
            cells[column] = QString::fromUtf8(text.data(), qsizetype(text.size()));
    });
    cells[rejected.reasonColumn] =
        rejected.rows->isHeader(line) ? shownTitle() : rejected.rows->reason(line);
}

std::vector<QString> titlesOf(const Rejected &rejected)
{
    const std::size_t columns = std::max<std::size_t>(
        std::min(rejected.rows->columns(), lastColumn + 1), rejected.reasonColumn + 1UL);
    std::vector<QString> titles(columns);
    if (rejected.rows->lines() > 0) {
        rejected.rows->forEachCell(0, [&](std::uint32_t column, std::string_view text) {
            const QString title = QString::fromUtf8(text.data(), qsizetype(text.size()));
            bool wasCut = false;
            titles[column] = QString::fromStdString(sheetText(title, wasCut));
        });
    }
    titles[rejected.reasonColumn] = shownTitle();
    return titles;
}

} // namespace

ExportTable rejectedTable(std::shared_ptr<const RejectedRows> rows)
{
    const std::uint32_t reasons = reasonColumn(*rows);
    const auto rejected = std::make_shared<Rejected>(Rejected{std::move(rows), reasons});
    std::vector<QString> titles = titlesOf(*rejected);
    rejected->columns = titles.size();
    ExportTable table{
        .name = u"Lignes rejetées"_s,
        .columns = {},
        .rows = std::max<std::size_t>(rejected->rows->lines(), 1) - 1,
        .fill = [rejected](std::size_t row,
                           std::vector<ExportCell> &cells) { fillLine(*rejected, row + 1, cells); },
        .zone = {}};
    for (std::size_t column = 0; column < titles.size(); ++column)
        table.columns.push_back(
            {std::move(titles[column]), column == reasons ? reasonWidth : cellWidth});
    return table;
}

} // namespace quenoria
