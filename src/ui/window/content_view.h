#pragma once

#include "platform/platform.h"
#include "ui/table/contact_table_model.h"
#include "ui/window/command_actions.h"

#include <QMainWindow>
#include <QPointer>

namespace quenoria {

class BackupCommands;
class ContactPanel;
class ContactTableView;
class DoubtAlerts;
class Farewell;
class FileAlerts;
class FileDrop;
class FilterBar;
class GuideWindow;
class ManyTicks;
class OutcomeLine;
class QueueSheet;
class RowActions;
class SendDesk;
class TablePages;
class WindowColumn;
class WindowHeader;
class WorkbookImport;

/// The application's window: the commands, and the table of all contacts.
class ContentView : public QMainWindow {
    Q_OBJECT

public:
    /// Desk, switches and the platform's services outlive the window.
    ContentView(SendDesk &desk, Switches &switches, const Platform &platform,
                QWidget *parent = nullptr);

    /// Shows a line above everything else, for good.
    void showBanner(const QString &text);

    void importWorkbook(const QString &path);
    /// The same from outside of the window, which may be busy with something else: after another
    /// import it follows, else the window says that it was not imported.
    void openWorkbook(const QString &path);

    /// How the demonstration is opened: in a process of its own, which touches no file of this one.
    /// False when it could not be started.
    void setDemonstration(const std::function<bool()> &start) { m_startDemonstration = start; }

    /// Makes the backup of the day a little later, if there is none yet.
    void startBackups();

    /// Says that the start completed a restore.
    void tellOfRestore();

    /// Makes ready for the session's end: nothing is under way and all is on the disk when it comes
    /// back. False when the user, whom it asks only if it may, wants to stay.
    bool settle(bool mayAsk);

    // The commands.
    void addContact();
    void importExcelFile();
    void checkWorkbook();
    void undoImport();
    void exportData();
    void applyStopList();
    void saveBackup();
    void restoreBackup();
    void showImportHelp();
    void showGuide();
    void showDemonstration(); ///< beside this window, with files of its own
    void openDataFolder();
    void manageDepartments();
    void manageTemplates(Channel channel);
    void testMessage();
    void chooseCarriers();
    void showStopReplies();
    void showReport();
    void composeMessage(const Composition &message);
    void showAbout();
    void quit();
    void openQueue(Channel channel);
    void deleteTickedContacts();
    void undoLast();
    void editCurrentContact();
    void showCurrentHistory();
    void showCurrentDossier();
    void copyPhone();
    void copyEmail();
    void startSearch();
    void toggleFullScreen();
    void resetColumnWidths();
    void togglePanel();
    void enterPanel();    ///< from there, the table
    void toggleFilters(); ///< hidden, they hide no contact
    void showAll();       ///< no search, no filter
    void tickShown(Channel channel);
    void untickShown(Channel channel);

Q_SIGNALS:
    /// The window was asked to close and stays open.
    void stayed();

    /// How far a run through a queue has come; total 0 when none is under way.
    void runProgressed(int done, int total);

    /// A run came to its end while the user, who wants to be told, looked elsewhere.
    void runEndedUnseen(const QString &title, const QString &text);

    /// A restore was decided on: the files are to be moved and read anew, without this window.
    void restoreDecided();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    template <typename View, typename... Arguments>
    void present(Arguments &&...arguments)
    {
        (new View(std::forward<Arguments>(arguments)..., this))->present();
    }
    void build();
    void addKeyboardMenus();
    void followModel();
    void followTable();
    void followPanel();
    void keepTypedText();
    void followRowActions();
    void followMailbox();
    void undo(int act);
    void performAction(RowAction action, const QString &id);
    void tellOfArrival(const QSet<QString> &ids);
    void tellOfFailure(const QString &title, const QString &message,
                       const std::optional<QString> &carrierWords);
    void refresh();
    void restoreLayout();
    void saveLayout();
    void copy(const QString &text, const QString &absence);
    void editContact(const QString &id);
    void showHistory(const QString &id);
    void showDossier(const QString &id);
    void fillContactMenu(QMenu &menu, const QString &id);

    SendDesk &m_desk;
    ProspectStore &m_store;
    Switches &m_switches;
    Platform m_platform;
    ContactTableModel m_model;
    CommandActions m_commands;
    RowActions *m_rows;
    WorkbookImport *m_import;
    BackupCommands *m_backups;
    FileAlerts *m_files;
    Farewell *m_farewell;
    DoubtAlerts *m_doubts;
    WindowHeader *m_header;
    ContactTableView *m_table;
    TablePages *m_pages;
    FilterBar *m_filters;
    ManyTicks *m_ticks;
    OutcomeLine *m_outcome;
    ContactPanel *m_panel;
    FileDrop *m_drop;
    QPointer<GuideWindow> m_guide;
    WindowColumn *m_column;
    std::function<bool()> m_startDemonstration;
    int m_lastAct = 0; ///< on the table, that can be undone
};

} // namespace quenoria
