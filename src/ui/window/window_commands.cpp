#include "messaging/send_desk.h"
#include "ui/kit/alert.h"
#include "ui/kit/plain_text.h"
#include "ui/sheets/about_view.h"
#include "ui/sheets/add_prospect_view.h"
#include "ui/sheets/carriers_view.h"
#include "ui/sheets/department_manager_view.h"
#include "ui/sheets/dossier_view.h"
#include "ui/sheets/edit_prospect_view.h"
#include "ui/sheets/new_message_view.h"
#include "ui/sheets/report_view.h"
#include "ui/sheets/send_history_view.h"
#include "ui/sheets/stop_replies_view.h"
#include "ui/sheets/template_manager_view.h"
#include "ui/sheets/test_message_view.h"
#include "ui/table/contact_table_view.h"
#include "ui/window/content_view.h"
#include "ui/window/filter_bar.h"
#include "ui/window/guide_window.h"
#include "ui/window/many_ticks.h"
#include "ui/window/outcome_line.h"
#include "ui/window/window_header.h"

#include <QApplication>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// One line per contact, and how many more there are. Two that share an id are two lines.
QString namesOf(const IdSet &ids, const ProspectStore &store)
{
    constexpr qsizetype most = 10;
    QStringList names;
    for (const Prospect &contact : store.allProspects()) {
        if (ids.contains(contact.id))
            names << contact.label;
    }
    const qsizetype others = names.size() - most;
    if (others > 0) {
        names.resize(most);
        names << u"… et %1 autre%2"_s.arg(QString::number(others), others > 1 ? u"s"_s : u""_s);
    }
    return names.join(u'\n');
}

} // namespace

void ContentView::addContact() { present<AddProspectView>(m_store); }
void ContentView::manageDepartments() { present<DepartmentManagerView>(m_store); }

void ContentView::manageTemplates(Channel channel)
{
    present<TemplateManagerView>(m_store, channelDescriptor(channel));
}

void ContentView::testMessage() { present<TestMessageView>(m_store); }
/// Over whatever asked for it, like the message below.
void ContentView::chooseCarriers()
{
    QWidget *front = QApplication::activeModalWidget();
    (new CarriersView(m_platform, m_desk, front ? front : this))->present();
}

void ContentView::showReport() { present<ReportView>(m_platform, m_store); }

/// Over a queue, whose run leaves out whoever answered.
void ContentView::showStopReplies()
{
    QWidget *front = QApplication::activeModalWidget();
    (new StopRepliesView(m_desk.stopReplies(), m_platform.clock.zone(), front ? front : this))
        ->present();
}

/// Over whatever asked for it, a queue most often.
void ContentView::composeMessage(const Composition &message)
{
    QWidget *front = QApplication::activeModalWidget();
    (new NewMessageView(m_platform.carriers, message, front ? front : this))->present();
}

void ContentView::showAbout() { present<AboutView>(); }

/// Beside the window, so that one can do what one reads.
void ContentView::showGuide()
{
    if (!m_guide) {
        m_guide = new GuideWindow(this);
        connect(m_guide, &GuideWindow::leftFor, this,
                [this](const QUrl &url) { std::ignore = m_platform.workspace.openUrl(url); });
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void ContentView::showDemonstration()
{
    m_outcome->tell(
        m_startDemonstration && m_startDemonstration()
            ? u"La démonstration s’ouvre dans une autre fenêtre, avec ses propres fichiers."_s
            : u"La démonstration n’a pas pu être démarrée. Dans un terminal : quenoria --demo"_s);
}

void ContentView::openDataFolder()
{
    const QString folder = m_platform.folders.data();
    if (!m_platform.workspace.openUrl(QUrl::fromLocalFile(folder)))
        m_outcome->tell(u"Le dossier n’a pas pu être ouvert : %1"_s.arg(folder));
}

void ContentView::editCurrentContact()
{
    if (const Prospect *current = m_table->currentContact())
        editContact(current->id);
}

void ContentView::showCurrentHistory()
{
    if (const Prospect *current = m_table->currentContact())
        showHistory(current->id);
}

void ContentView::showCurrentDossier()
{
    if (const Prospect *current = m_table->currentContact())
        showDossier(current->id);
}

void ContentView::editContact(const QString &id)
{
    if (const Prospect *contact = m_store.prospect(id))
        present<EditProspectView>(m_store, *contact);
}

void ContentView::showHistory(const QString &id)
{
    if (const Prospect *contact = m_store.prospect(id))
        present<SendHistoryView>(m_store, m_platform.clock.zone(), *contact);
}

void ContentView::showDossier(const QString &id) { present<DossierView>(m_platform, m_store, id); }

/// Those that are ticked, else the one under the cursor.
void ContentView::deleteTickedContacts()
{
    IdSet doomed = m_model.deleteSelection();
    if (const Prospect *current = m_table->currentContact(); doomed.empty() && current)
        doomed.insert(current->id);
    if (doomed.empty())
        return;
    confirm(this,
            {u"Supprimer définitivement %1 contact(s) ?"_s.arg(doomed.size()),
             u"Les historiques d’envoi, commentaires, demandes STOP, associations de messages et "
             "fichiers joints enregistrés pour ces contacts seront également supprimés."_s +
                 u"\n\n"_s + namesOf(doomed, m_store),
             u"Supprimer les contacts et leurs données"_s},
            [this, doomed] {
                m_store.deleteProspects(doomed);
                m_model.clearDeleteSelection();
            });
}

void ContentView::copyPhone()
{
    if (const Prospect *current = m_table->currentContact())
        copy(current->phone, u"Ce contact n’a pas de numéro."_s);
}

void ContentView::copyEmail()
{
    if (const Prospect *current = m_table->currentContact())
        copy(current->email.value_or(QString()), u"Ce contact n’a pas d’adresse e-mail."_s);
}

void ContentView::copy(const QString &text, const QString &absence)
{
    if (text.isEmpty())
        return m_outcome->tell(absence);
    m_platform.pasteboard.setText(text);
    m_outcome->tell(u"Copié : "_s + oneLine(text));
}

void ContentView::startSearch()
{
    m_header->searchField()->setFocus(Qt::ShortcutFocusReason);
    m_header->searchField()->selectAll();
}

void ContentView::toggleFullScreen() { setWindowState(windowState() ^ Qt::WindowFullScreen); }

void ContentView::toggleFilters()
{
    m_filters->setVisible(m_filters->isHidden());
    if (m_filters->isHidden())
        m_model.setFilter({});
    else
        m_filters->setFocus(Qt::ShortcutFocusReason);
}

void ContentView::showAll()
{
    m_header->searchField()->clear();
    m_model.setFilter({});
    m_table->setFocus();
}

void ContentView::resetColumnWidths() { m_table->resetColumnWidths(); }

void ContentView::tickShown(Channel channel)
{
    m_ticks->tickShown({SortColumn::selection, channel}, true);
}

void ContentView::untickShown(Channel channel)
{
    m_ticks->tickShown({SortColumn::selection, channel}, false);
}

void ContentView::quit() { close(); }

} // namespace quenoria
