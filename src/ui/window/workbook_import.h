#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace quenoria {

class FilePanels;
class ImportProgress;
class ImportUndo;
class ProspectStore;
class WorkbookReading;
struct ImportReport;
struct ProspectImportAnalysis;
struct ReadWorkbook;

/// Imports a workbook under the eyes of the user: it is analysed on another thread while the
/// window shows the progress and takes no other order, and merged at the end. Failed or stopped,
/// an import changes nothing. The last one can be taken back, as ImportUndo says.
class WorkbookImport : public QObject {
    Q_OBJECT

public:
    WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window);

    void choose(); ///< asks for the workbook first
    void run(const QString &workbookPath);
    void merge(ProspectImportAnalysis analysis);
    bool isRunning() const { return !m_progress.isNull(); }

    bool canBeUndone() const;
    void askToUndo();                        ///< and takes the last import back, if it may
    void noteSend(const QString &contactId); ///< a message went to the contact, or may have

Q_SIGNALS:
    void undoOffered(); ///< or not any more
    void merged();      ///< a workbook into the contacts

private:
    void showProgress(const QString &fileName);
    void conclude(ReadWorkbook &outcome);
    void tell(const ImportReport &report);
    void undo();

    ProspectStore &m_store;
    FilePanels &m_panels;
    QWidget *m_window;
    WorkbookReading *m_reading;
    ImportUndo *m_undo;
    QPointer<ImportProgress> m_progress;
};

} // namespace quenoria
