#pragma once

#include "import/import_report.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace quenoria {

class FilePanels;
class ImportProgress;
class ProspectStore;
class WorkbookReading;
struct ProspectImportAnalysis;
struct ReadWorkbook;

/// Imports a workbook under the eyes of the user: it is analysed on another thread while the
/// window shows the progress and takes no other order, and merged at the end. Failed or stopped,
/// an import changes nothing.
class WorkbookImport : public QObject {
    Q_OBJECT

public:
    WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window);

    void choose(); ///< asks for the workbook first
    void run(const QString &workbookPath);
    void merge(ProspectImportAnalysis analysis);
    bool isRunning() const { return !m_progress.isNull(); }

Q_SIGNALS:
    void finished(const quenoria::ImportReport &report);

private:
    void showProgress(const QString &fileName);
    void conclude(ReadWorkbook &outcome);

    ProspectStore &m_store;
    FilePanels &m_panels;
    QWidget *m_window;
    WorkbookReading *m_reading;
    QPointer<ImportProgress> m_progress;
};

} // namespace quenoria
