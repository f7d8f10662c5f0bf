#pragma once

#include <QObject>

class QDropEvent;
class QWidget;

namespace quenoria {

class ContactTableView;
class ProspectStore;
class UndoList;
class WorkbookImport;
struct Prospect;

/// What becomes of a file that is dropped on the window. On a contact's row it is attached to the
/// contact, after a question where it replaces another file; a workbook may be meant for the list
/// there as well, which is asked. Elsewhere a workbook is imported, and nothing else is taken.
/// While the window is busy with an import, workbooks are taken to follow it.
class FileDrop : public QObject {
    Q_OBJECT

public:
    FileDrop(ContactTableView &table, ProspectStore &store, UndoList &undo,
             const WorkbookImport &import, QWidget *window);

    bool mayTake(const QDropEvent &event) const; ///< somewhere in the window
    bool follow(const QDropEvent &event); ///< whether it takes it where it is; marks the row there
    void leave();                         ///< nothing is dragged over the window any more
    bool take(const QDropEvent &event);   ///< if it does take it

Q_SIGNALS:
    void importRequested(const QString &workbookPath);

private:
    QPoint inTable(const QDropEvent &event) const;
    const Prospect *contactAt(const QDropEvent &event) const;
    void askAboutWorkbook(const QString &path, const Prospect &contact);
    void attach(const QString &path, const QString &contactId);
    void replace(const QString &path, const QString &contactId);

    ContactTableView &m_table;
    ProspectStore &m_store;
    UndoList &m_undo;
    const WorkbookImport &m_import;
    QWidget *m_window;
};

} // namespace quenoria
