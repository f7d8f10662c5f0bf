#pragma once

#include "platform/platform.h"
#include "ui/kit/sheet.h"
#include "ui/sheets/report_pages.h"

class QStackedWidget;
class QTableView;

namespace quenoria {

class ChoicePicker;
class ExportRun;
class ReportChart;
class ReportModel;
class StatusLabel;
class TextLabel;
struct ExportOutcome;

/// What was sent, by month, department, trade and template: a table, and a chart of it.
class ReportView : public Sheet {
    Q_OBJECT

public:
    ReportView(const Platform &platform, const ProspectStore &store, QWidget *parent);

private:
    void addPicker();
    void addContents();
    void addFooter();
    void refresh();
    void showPage();
    const ReportPage &page() const;
    void savePicture();
    void saveWorkbook();
    void conclude(const ExportOutcome &outcome);
    void tell(const Refusal &failure, const QString &path);

    Platform m_platform;
    const ProspectStore &m_store;
    std::vector<ReportPage> m_shown;
    ChoicePicker *m_picker;
    TextLabel *m_note;
    QStackedWidget *m_contents;
    QTableView *m_table;
    ReportModel *m_model;
    ReportChart *m_chart;
    StatusLabel *m_status;
    QPushButton *m_picture;
    QPushButton *m_workbook;
    ExportRun *m_run;
    QString m_path; ///< of the workbook that is being written
};

} // namespace quenoria
