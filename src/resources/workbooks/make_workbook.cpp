// Build tool: turns texts into a workbook.
//   make_workbook contacts.xlsx contacts.tsv [guide.txt]
// The table's first line is the header; with a guide, the lines below are examples, in grey. In the
// guide, "# " begins the title, "## " a heading, and a line with tabulators is a row of cells.
// Every cell is a text, so that a mobile keeps its leading zero; the same texts give the same
// bytes, whenever they are built.

#include <xlsxwriter.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr double narrowest = 14.0;
constexpr double padding = 4.0;
constexpr double guideWidths[] = {28.0, 22.0, 60.0};
constexpr double textSize = 11.0;
constexpr double titleSize = 16.0;
constexpr double headingSize = 12.0;
constexpr double headerHeight = 22.0;
constexpr lxw_color_t headerColor = 0xDCE6F1;
constexpr lxw_color_t exampleColor = 0x8C8C8C;
constexpr time_t created = 1'767'225'600; // 1 January 2026: the build's date would differ each time

using Row = std::vector<std::string>;

std::vector<Row> readRows(const char *path)
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

/// Characters of a UTF-8 text, for the width of its column.
double characters(const std::string &text)
{
    return double(std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

lxw_format *boldFormat(lxw_workbook *workbook, double size)
{
    lxw_format *format = workbook_add_format(workbook);
    format_set_bold(format);
    format_set_font_size(format, size);
    return format;
}

void writeRow(lxw_worksheet *sheet, std::size_t y, const Row &row, lxw_format *format)
{
    for (std::size_t x = 0; x < row.size(); ++x)
        worksheet_write_string(sheet, lxw_row_t(y), lxw_col_t(x), row[x].c_str(), format);
}

lxw_format *textFormat(lxw_workbook *workbook)
{
    lxw_format *format = workbook_add_format(workbook);
    format_set_num_format(format, "@");
    return format;
}

enum class Rows { contacts, examples };

void writeContacts(lxw_workbook *workbook, const std::vector<Row> &rows, Rows kind)
{
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "Contacts");
    lxw_format *header = boldFormat(workbook, textSize);
    format_set_bottom(header, LXW_BORDER_THIN);
    format_set_bg_color(header, headerColor);
    format_set_align(header, LXW_ALIGN_VERTICAL_CENTER);
    lxw_format *text = textFormat(workbook);
    lxw_format *example = textFormat(workbook);
    format_set_italic(example);
    format_set_font_color(example, exampleColor);
    worksheet_set_row(sheet, 0, headerHeight, nullptr);
    writeRow(sheet, 0, rows.front(), header);
    for (std::size_t y = 1; y < rows.size(); ++y)
        writeRow(sheet, y, rows[y], kind == Rows::examples ? example : text);
    for (std::size_t x = 0; x < rows.front().size(); ++x) {
        double width = narrowest;
        for (const Row &row : rows) {
            if (x < row.size())
                width = std::max(width, characters(row[x]) + padding);
        }
        worksheet_set_column(sheet, lxw_col_t(x), lxw_col_t(x), width, text);
    }
    worksheet_freeze_panes(sheet, 1, 0);
}

void writeGuide(lxw_workbook *workbook, const std::vector<Row> &rows)
{
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, "Mode d’emploi");
    lxw_format *title = boldFormat(workbook, titleSize);
    lxw_format *heading = boldFormat(workbook, headingSize);
    lxw_format *text = textFormat(workbook);
    for (std::size_t x = 0; x < std::size(guideWidths); ++x)
        worksheet_set_column(sheet, lxw_col_t(x), lxw_col_t(x), guideWidths[x], text);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const std::string &line = rows[y].front();
        if (line.starts_with("# "))
            writeRow(sheet, y, {line.substr(2)}, title);
        else if (line.starts_with("## "))
            writeRow(sheet, y, {line.substr(3)}, heading);
        else if (!line.empty())
            writeRow(sheet, y, rows[y], text);
    }
    worksheet_gridlines(sheet, LXW_HIDE_ALL_GRIDLINES);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 4) {
        std::cerr << "usage: make_workbook WORKBOOK.xlsx TABLE.tsv [GUIDE.txt]\n";
        return 2;
    }
    const std::vector<Row> contacts = readRows(argv[2]);
    const std::vector<Row> guide = argc == 4 ? readRows(argv[3]) : std::vector<Row>();
    if (contacts.empty() || (argc == 4 && guide.empty())) {
        std::cerr << "make_workbook: nothing to read\n";
        return 1;
    }
    lxw_workbook *workbook = workbook_new(argv[1]);
    lxw_doc_properties properties{};
    properties.created = created;
    workbook_set_properties(workbook, &properties);
    writeContacts(workbook, contacts, guide.empty() ? Rows::contacts : Rows::examples);
    if (!guide.empty())
        writeGuide(workbook, guide);
    const lxw_error error = workbook_close(workbook);
    if (error != LXW_NO_ERROR)
        std::cerr << "make_workbook: " << lxw_strerror(error) << '\n';
    return error == LXW_NO_ERROR ? 0 : 1;
}
