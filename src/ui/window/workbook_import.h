#pragma once

#include <QDateTime>
#include <QList>
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
/// an import changes nothing. The last one can be taken back, as ImportUndo says. A workbook that
/// comes from outside meanwhile waits until all has been read that was said about the former.
class WorkbookImport : public QObject {
    Q_OBJECT

public:
    WorkbookImport(ProspectStore &store, FilePanels &panels, QWidget *window);

    void choose();                         ///< asks for the workbook first
    void run(const QString &workbookPath); ///< once those that came before are done
    void merge(ProspectImportAnalysis analysis);
    bool isBusy() const { return m_isReading || m_toBeRead > 0; }

    bool canBeUndone() const;
    void askToUndo();                        ///< and takes the last import back, if it may
    void noteSend(const QString &contactId); ///< a message went to the contact, or may have

Q_SIGNALS:
    void undoOffered();                          ///< or not any more
    void merged();                               ///< a workbook into the contacts
    void postponed(const QString &workbookPath); ///< until others are done
    void followed();                             ///< one that was postponed is read now

private:
    /// The same file, as long as nobody has written it meanwhile.
    struct Workbook {
        QString path;
        QDateTime written;
        bool operator==(const Workbook &) const = default;
    };

    void read(const Workbook &workbook);
    void startNext();
    void say(QWidget *alert);
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
    Workbook m_current; ///< while busy
    QList<Workbook> m_waiting;
    bool m_isReading = false;
    int m_toBeRead = 0; ///< alerts about the current one that stand open
};

} // namespace quenoria
