#pragma once

#include <QObject>
#include <QPointer>

class QDialog;
class QWidget;

namespace quenoria {

class FileAlerts;
class SendDesk;
class Sheet;

/// The one way out, whoever asks: the window's cross, "Quitter", a signal or the session's end.
///
/// Asks once about what was typed and not saved; begins no new message, waits for what a carrier
/// has until it is recorded; then writes what is left. Whatever keeps the window open leaves the
/// application as it was.
class Farewell : public QObject {
    Q_OBJECT

public:
    Farewell(SendDesk &desk, FileAlerts &files, QWidget *window);

    /// Whether the window may close at once. If not, something is asked or waited for: ready() or
    /// calledOff() follows.
    bool mayLeave();

    /// The same without leaving, for a session that ends: comes back once all is on the disk.
    /// False when the user, whom it asks only if it may, wants to stay.
    bool settle(bool mayAsk);

Q_SIGNALS:
    /// What was asked or waited for is done: the window may try again.
    void ready();

    /// The window stays open.
    void calledOff();

private:
    QList<Sheet *> openSheets() const;
    bool hasUnsavedInput() const;
    void abandonSheets() const;
    void askAboutInput();
    bool awaitAnswer();
    void showNotice();
    void finish();
    void callOff();

    SendDesk &m_desk;
    FileAlerts &m_files;
    QWidget *m_window;
    QPointer<QDialog> m_notice;
    QPointer<QWidget> m_question;
    bool m_inputIsGivenUp = false;
};

} // namespace quenoria
