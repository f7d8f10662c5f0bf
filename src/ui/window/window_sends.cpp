// What the window says of sends, and of who else acts for it.

#include "ui/kit/alert.h"
#include "ui/kit/plain_text.h"
#include "ui/sheets/password_view.h"
#include "ui/window/backup_commands.h"
#include "ui/window/content_view.h"
#include "ui/window/farewell.h"
#include "ui/window/outcome_line.h"
#include "ui/window/row_actions.h"

#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int outcomeDuration = 6000; ///< milliseconds
const QString longSend = u"Envoi en cours… "_s;

} // namespace

void ContentView::followRowActions()
{
    const auto tell = [this](const QString &text, int duration) {
        statusBar()->show();
        statusBar()->showMessage(text, duration);
    };
    connect(m_rows, &RowActions::failed, this, &ContentView::tellOfFailure);
    connect(m_rows, &RowActions::notSent, statusBar(), &QStatusBar::clearMessage);
    connect(m_rows, &RowActions::historyRequested, this, &ContentView::showHistory);
    connect(m_rows, &RowActions::sendStarted, this, [tell](const QString &label) {
        tell(u"Envoi en cours : %1…"_s.arg(oneLine(label)), 0);
    });
    connect(&m_desk.progress(), &HandOverWatch::changed, this, [this, tell] {
        const QString &progress = m_desk.progress().text();
        if (!progress.isEmpty())
            tell(longSend + progress, 0);
        else if (statusBar()->currentMessage().startsWith(longSend))
            statusBar()->clearMessage();
    });
    connect(m_rows, &RowActions::sent, this, [tell](const QString &label) {
        tell(u"Envoyé : %1"_s.arg(oneLine(label)), outcomeDuration);
    });
    connect(statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString &text) { statusBar()->setVisible(!text.isEmpty()); });
    connect(&m_platform.carriers, &Carriers::composeRequested, this, &ContentView::composeMessage);
    connect(m_backups, &BackupCommands::restoreDecided, this, [this] {
        saveLayout();
        Q_EMIT restoreDecided();
    });
    connect(m_backups, &BackupCommands::done, m_outcome,
            qOverload<const QString &>(&OutcomeLine::tell));
    connect(m_farewell, &Farewell::ready, this, &ContentView::quit, Qt::QueuedConnection);
    connect(m_farewell, &Farewell::calledOff, this, &ContentView::stayed);
}

/// What a carrier refused, another may take.
void ContentView::tellOfFailure(const QString &title, const QString &message,
                                const std::optional<QString> &carrierWords)
{
    if (!carrierWords) {
        showAlert(this, title, message);
        return;
    }
    const QString text = carrierWords->isEmpty() ? message : message + u"\n\n"_s + *carrierWords;
    offerChoices(
        this, title, text,
        {{u"Choisir un moyen d’envoi…"_s, [this] { chooseCarriers(); }}, {u"OK"_s, [] {}}});
}

/// An e-mail that waits for the mailbox's pace, or for its password, and says so.
void ContentView::followMailbox()
{
    MailTurn &turn = m_desk.mailTurn();
    connect(&turn, &MailTurn::noticeChanged, this, [this, &turn] {
        if (const QString notice = turn.notice(); !notice.isEmpty()) {
            statusBar()->show();
            statusBar()->showMessage(notice);
        } else {
            statusBar()->clearMessage();
        }
    });
    turn.askPasswordWith([this](const std::stop_token &stop) {
        const QString address = MailSettings(m_platform.preferences).account().senderAddress;
        return PasswordView::ask(m_platform.mailbox, address, this, stop);
    });
}

} // namespace quenoria
