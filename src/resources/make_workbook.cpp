// Build tool: turns a table of tab-separated texts into a workbook.
//   make_workbook contacts.tsv contacts.xlsx
// The first line is the header. Every cell is a text, so that a mobile keeps its leading zero.

#include <xlsxwriter.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr double narrowest = 12.0;
constexpr double padding = 2.0;

using Row = std::vector<std::string>;

std::vector<Row> readTable(const char *path)
{
    std::ifstream source(path);
    std::vector<Row> rows;
    for (std::string line; std::getline(source, line);) {
        Row &row = rows.emplace_back();
        std::size_t start = 0;
        for (std::size_t tab = line.find('\t'); tab != std::string::npos;
             tab = line.find('\t', start)) {
            row.push_back(line.substr(start, tab - start));
            start = tab + 1;
        }
        row.push_back(line.substr(start));
    }
    return rows;
}

void writeSheet(lxw_workbook *workbook, const std::vector<Row> &rows)
{
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "Contacts");
    lxw_format *header = workbook_add_format(workbook);
    format_set_bold(header);
    lxw_format *text = workbook_add_format(workbook);
    format_set_num_format(text, "@");
    std::vector<double> widths(rows.empty() ? 0 : rows.front().size(), narrowest);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < std::min(rows[y].size(), widths.size()); ++x) {
            worksheet_write_string(sheet, lxw_row_t(y), lxw_col_t(x), rows[y][x].c_str(),
                                   y == 0 ? header : text);
            widths[x] = std::max(widths[x], double(rows[y][x].size()) + padding);
        }
    }
    for (std::size_t x = 0; x < widths.size(); ++x)
        worksheet_set_column(sheet, lxw_col_t(x), lxw_col_t(x), widths[x], nullptr);
    worksheet_freeze_panes(sheet, 1, 0);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::cerr << "usage: make_workbook TABLE.tsv WORKBOOK.xlsx\n";
        return 2;
    }
    const std::vector<Row> rows = readTable(argv[1]);
    lxw_workbook *workbook = workbook_new(argv[2]);
    writeSheet(workbook, rows);
    const lxw_error error = workbook_close(workbook);
    if (rows.empty() || error != LXW_NO_ERROR) {
        std::cerr << "make_workbook: " << lxw_strerror(error) << '\n';
        return 1;
    }
    return 0;
}
