#pragma once

#include "export/export_table.h"
#include "store/send_report.h"

#include <QTimeZone>

#include <optional>

namespace quenoria {

/// A column that a chart draws, under a name short enough for its legend.
struct ReportBar {
    std::size_t column;
    QString name;
};

/// One table of the report. Its chart shows some of its columns, so the table is also the form in
/// which the chart can be read aloud.
struct ReportPage {
    QString name;
    QString note; ///< how its figures are to be read
    std::vector<ExportColumn> columns;
    std::vector<std::vector<ExportCell>> rows;
    QString chartTitle;
    std::vector<ReportBar> bars; ///< the first column tells them apart
    bool newestFirst = false;    ///< in the table; the chart runs the other way
    std::optional<int> limit;    ///< a line across the bars
    QString limitName;
};

/// By month, department, trade and template.
[[nodiscard]] std::vector<ReportPage> reportPages(const SendReport &report,
                                                  const ProspectStore &store);

/// A cell as the screen shows it.
///
///   Share{0.025} -> "2,5 %"
[[nodiscard]] QString shownCell(const ExportCell &cell);

/// The pages as the sheets of one workbook.
[[nodiscard]] ExportTable reportTable(const std::vector<ReportPage> &pages, const QTimeZone &zone);

} // namespace quenoria
