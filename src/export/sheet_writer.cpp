#include "export/sheet_writer.h"

#include "export/local_moment.h"
#include "platform/system_reason.h"

#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>
#include <zip.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qsizetype longestText = 32'767; // of a cell, for every spreadsheet
constexpr double daysBefore1970 = 25'569; // since the day 0 of spreadsheets

/// The sheet's data waits in a file of the folder, not in memory.
lxw_workbook *openWorkbook(const QString &path)
{
    QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    options.use_zip64 = LXW_FALSE;
    return workbook_new_opt(QFile::encodeName(path).constData(), &options);
}

bool hasNoForm(QChar c)
{
    const char16_t unit = c.unicode();
    return (unit < 0x20 && unit != u'\t' && unit != u'\n') || unit >= 0xFFFE;
}

bool isWhole(const QString &path, const std::vector<std::uint64_t> &sheetBytes)
{
    const std::unique_ptr<zip_t, decltype(&zip_discard)> package(
        zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr), &zip_discard);
    if (!package)
        return false;
    zip_stat_t part{};
    for (zip_int64_t each = 0; each < zip_get_num_entries(package.get(), 0); ++each) {
        if (zip_stat_index(package.get(), zip_uint64_t(each), 0, &part) != 0 || part.size == 0)
            return false;
    }
    for (std::size_t sheet = 0; sheet < sheetBytes.size(); ++sheet) {
        const QByteArray name = "xl/worksheets/sheet" + QByteArray::number(sheet + 1) + ".xml";
        if (zip_stat(package.get(), name.constData(), 0, &part) != 0 ||
            part.size <= sheetBytes[sheet])
            return false;
    }
    return true;
}

double spreadsheetDays(Instant instant, const QTimeZone &zone)
{
    using Days = std::chrono::duration<double, std::ratio<86'400>>;
    return daysBefore1970 + Days(localTime(instant, zone)).count();
}

} // namespace

std::string sheetText(const QString &text, bool &wasCut)
{
    QString kept = text;
    if (kept.contains(u'\r')) {
        kept.replace(u"\r\n"_s, u"\n"_s);
        kept.replace(u'\r', u'\n');
    }
    if (std::ranges::any_of(kept, hasNoForm))
        kept.removeIf(hasNoForm);
    wasCut = kept.size() > longestText;
    if (wasCut) {
        const bool inPair = kept[longestText - 2].isHighSurrogate();
        kept = kept.left(longestText - (inPair ? 2 : 1)) + u'…';
    }
    return kept.toStdString();
}

SheetWriter::SheetWriter(const QString &path, const ExportTable &table)
    : m_path(path), m_table(&table), m_workbook(openWorkbook(path)),
      m_header(workbook_add_format(m_workbook)), m_text(workbook_add_format(m_workbook)),
      m_share(workbook_add_format(m_workbook)), m_moment(workbook_add_format(m_workbook))
{
    format_set_bold(m_header);
    format_set_bottom(m_header, LXW_BORDER_THIN);
    format_set_num_format(m_text, "@");
    format_set_num_format(m_share, "0.0%");
    format_set_num_format(m_moment, "dd/mm/yyyy hh:mm");
    format_set_align(m_moment, LXW_ALIGN_LEFT);
    beginSheet();
}

SheetWriter::~SheetWriter()
{
    if (m_workbook)
        lxw_workbook_free(m_workbook);
}

void SheetWriter::beginSheet()
{
    if (m_sheet)
        measure();
    m_sheetBytes.push_back(0);
    ++m_sheetsOfTable;
    const QString name =
        m_sheetsOfTable == 1 ? m_table->name : u"%1 (%2)"_s.arg(m_table->name).arg(m_sheetsOfTable);
    m_sheet = workbook_add_worksheet(m_workbook, name.toUtf8().constData());
    if (!m_sheet) { // it needs a file that waits for its rows
        lxw_workbook_free(std::exchange(m_workbook, nullptr));
        throw DraftLost{systemReason(errno != 0 ? errno : EIO)};
    }
    m_row = 0;
    for (std::size_t each = 0; each < m_table->columns.size(); ++each) {
        const ExportColumn &column = m_table->columns[each];
        const auto place = lxw_col_t(each);
        lxw_format *format = column.kind == ExportKind::text     ? m_text
                             : column.kind == ExportKind::moment ? m_moment
                                                                 : nullptr;
        worksheet_set_column(m_sheet, place, place, column.width, format);
        worksheet_write_string(m_sheet, 0, place, column.title.toUtf8().constData(), m_header);
    }
    worksheet_freeze_panes(m_sheet, 1, 0);
}

void SheetWriter::turnTo(const ExportTable &table)
{
    m_table = &table;
    m_sheetsOfTable = 0;
    beginSheet();
}

void SheetWriter::add(const std::vector<ExportCell> &cells)
{
    if (m_row + 1 >= LXW_ROW_MAX)
        beginSheet();
    ++m_row;
    for (std::size_t each = 0; each < cells.size(); ++each)
        write(int(each), cells[each]);
}

void SheetWriter::write(int column, const ExportCell &cell)
{
    const auto place = lxw_col_t(column);
    if (const auto *text = std::get_if<QString>(&cell); text && !text->isEmpty()) {
        bool wasCut = false;
        worksheet_write_string(m_sheet, m_row, place, sheetText(*text, wasCut).c_str(), m_text);
        m_cutTexts += wasCut ? 1 : 0;
    } else if (const auto *number = std::get_if<int>(&cell)) {
        worksheet_write_number(m_sheet, m_row, place, *number, nullptr);
    } else if (const auto *share = std::get_if<Share>(&cell)) {
        worksheet_write_number(m_sheet, m_row, place, share->value, m_share);
    } else if (const auto *instant = std::get_if<Instant>(&cell)) {
        worksheet_write_number(m_sheet, m_row, place, spreadsheetDays(*instant, m_table->zone),
                               m_moment);
    }
}

/// How much of the sheet's data waits in its file by now.
void SheetWriter::measure()
{
    std::FILE *data = m_sheet->optimize_tmpfile;
    m_isLost = m_isLost || std::fflush(data) != 0 || std::ferror(data) != 0;
    m_sheetBytes.back() = std::uint64_t(std::max(std::ftell(data), 0L));
}

/// The library looks at no outcome of what it writes before it packs it: a disk that was full
/// meanwhile shows in parts that are smaller than what they were made of.
std::optional<QString> SheetWriter::close()
{
    measure();
    errno = 0;
    const lxw_error error = workbook_close(std::exchange(m_workbook, nullptr));
    if (error != LXW_NO_ERROR)
        return systemReason(errno != 0 ? errno : EIO);
    if (m_isLost || !isWhole(m_path, m_sheetBytes))
        return systemReason(ENOSPC);
    return {};
}

} // namespace quenoria
