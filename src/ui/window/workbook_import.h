#pragma once

#include "import/import_report.h"
#include "import/prospect_excel_importer.h"

#include <QFutureWatcher>
#include <QPointer>

#include <memory>

class QWidget;

namespace quenoria {

class FilePanels;
class ImportProgress;
class ProspectStore;

/// Imports a workbook under the eyes of the user: it is analysed on another thread while the
/// window shows the progress and takes no other order, and merged at the end. Failed or stopped,
/// an import changes nothing.
class WorkbookImport : public QObject {
    Q_OBJECT

public:
    WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window);
    ~WorkbookImport() override;

    void choose(); ///< asks for the workbook first
    void run(const QString &workbookPath);
    bool isRunning() const { return !m_progress.isNull(); }

Q_SIGNALS:
    void finished(const quenoria::ImportReport &report);

private:
    /// Neither member when the user stopped the analysis.
    struct Outcome {
        std::optional<ProspectImportAnalysis> analysis;
        std::optional<QString> failure;
    };

    static void analyse(QPromise<std::shared_ptr<Outcome>> &promise, const QString &path,
                        const IdSet &known, const std::stop_token &stop);
    void showProgress(const QString &fileName);
    void conclude();

    ProspectStore &m_store;
    FilePanels &m_panels;
    QWidget *m_window;
    std::stop_source m_stop;
    QFutureWatcher<std::shared_ptr<Outcome>> m_analysis;
    QPointer<ImportProgress> m_progress;
};

} // namespace quenoria
