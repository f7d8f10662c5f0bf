#pragma once

#include "import/prospect_excel_importer.h"
#include "platform/platform.h"
#include "ui/kit/sheet.h"
#include "ui/sheets/check_words.h"

#include <functional>

class QComboBox;
class QProgressBar;
class QPushButton;

namespace quenoria {

class CheckModel;
class ExportRun;
class ProspectStore;
class StatusLabel;
class TextLabel;
class WorkbookChecker;
class WorkbookReading;
struct ExportOutcome;
struct ReadWorkbook;

/// Shows what an import of a workbook would do, row by row, before anything is changed. From here
/// the rows that would be left out can be saved, and exactly what was shown can be imported.
class WorkbookCheckView : public Sheet {
    Q_OBJECT

public:
    /// Called once the sheet was left by "Importer".
    using Import = std::function<void(ProspectImportAnalysis analysis)>;

    WorkbookCheckView(const Platform &platform, ProspectStore &store, const QString &path,
                      Import import, QWidget *parent);

    void reject() override;

private:
    enum class Phase { reading, shown, saving, failed };

    void addParts();
    void addFooter();
    void followStore();
    void read();
    void conclude(ReadWorkbook &outcome);
    void showCheck();
    void choose(int choice);
    void saveRejected();
    void tellSaved(const ExportOutcome &outcome);
    void import();
    void enter(Phase phase);
    void fail(const QString &message);

    Platform m_platform;
    ProspectStore &m_store;
    QString m_path;
    Import m_import;
    Phase m_phase = Phase::reading;
    std::shared_ptr<WorkbookChecker> m_checker; ///< while the workbook is read
    ProspectImportAnalysis m_analysis;
    std::vector<CheckedChoice> m_choices;
    CheckModel *m_model;
    WorkbookReading *m_reading;
    ExportRun *m_saving;
    TextLabel *m_columns;
    TextLabel *m_counts;
    QWidget *m_results; ///< choice and table
    QComboBox *m_choice;
    TextLabel *m_rest; ///< that there are more rows than are shown
    QProgressBar *m_progress;
    StatusLabel *m_status;
    QPushButton *m_stopButton;
    QPushButton *m_save;
    QPushButton *m_confirm;
    QString m_savedName;
};

} // namespace quenoria
