#pragma once

#include "export/export_table.h"

#include <memory>
#include <string>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace quenoria {

/// The draft of a workbook can be neither written nor read any more.
struct DraftLost {
    QString reason;
};

/// A text as a cell of a workbook may hold it: line breaks as line feeds, and without the few
/// characters that XML has no form for.
[[nodiscard]] std::string sheetText(const QString &text, bool &wasCut);

/// Writes rows to a workbook one after the other, on as many sheets as they need. Throws DraftLost
/// where it cannot even begin a sheet.
class SheetWriter {
public:
    /// The path is of a new file, in a folder for this writer alone.
    SheetWriter(const QString &path, const ExportTable &table);
    ~SheetWriter();
    SheetWriter(const SheetWriter &) = delete;
    SheetWriter &operator=(const SheetWriter &) = delete;

    void add(const std::vector<ExportCell> &cells);

    /// What is added from now on is of this table, which outlives the writer too.
    void turnTo(const ExportTable &table);

    /// Ends the file. Says why it could not be written.
    [[nodiscard]] std::optional<QString> close();

    std::size_t cutTexts() const { return m_cutTexts; }

private:
    void beginSheet();
    void write(int column, const ExportCell &cell);
    void measure();

    QString m_path;
    const ExportTable *m_table;
    std::size_t m_sheetsOfTable = 0;
    lxw_workbook *m_workbook;
    lxw_worksheet *m_sheet = nullptr;
    lxw_format *m_header;
    lxw_format *m_text;
    lxw_format *m_share;
    lxw_format *m_moment;
    unsigned m_row = 0;                      ///< of the sheet
    std::vector<std::uint64_t> m_sheetBytes; ///< of the data of each sheet, at least
    bool m_isLost = false;                   ///< some of it found no room
    std::size_t m_cutTexts = 0;
};

} // namespace quenoria
