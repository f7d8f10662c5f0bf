// What the window does about what happens in the table.

#include "ui/kit/plain_text.h"
#include "ui/table/contact_table_view.h"
#include "ui/window/contact_panel.h"
#include "ui/window/content_view.h"
#include "ui/window/file_drop.h"
#include "ui/window/many_ticks.h"
#include "ui/window/outcome_line.h"
#include "ui/window/row_actions.h"
#include "ui/window/workbook_import.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace quenoria {

void ContentView::followTable()
{
    connect(m_table, &ContactTableView::editRequested, this, &ContentView::editContact);
    connect(m_table, &ContactTableView::actionRequested, this, &ContentView::performAction);
    connect(m_table, &ContactTableView::tickRequested, this, [this](int column, bool ticked) {
        m_ticks->tick(column, ticked, m_table->selectedContacts());
    });
    connect(m_ticks, &ManyTicks::done, this, [this](const QString &line, bool canBeUndone) {
        m_outcome->tell(line, canBeUndone ? u"Annuler"_s : QString(),
                        [this, act = m_lastAct] { undo(act); });
    });
    connect(&m_model.undoList(), &UndoList::recorded, this,
            [this](int act, const QString &inWords) {
                m_lastAct = act;
                m_outcome->tell(inWords, u"Annuler"_s, [this, act] { undo(act); });
            });
    UndoList &undoList = m_model.undoList();
    connect(&m_desk.stopReplies(), &StopReplies::changed, &undoList, &UndoList::keepStops);
    connect(m_import, &WorkbookImport::merged, &undoList, &UndoList::keepStops);
    connect(m_table, &ContactTableView::menuRequested, this,
            [this](const QString &id, const QPoint &position) {
                auto *menu = new QMenu(this);
                menu->setAttribute(Qt::WA_DeleteOnClose);
                fillContactMenu(*menu, id);
                menu->popup(position);
            });
}

void ContentView::followPanel()
{
    const auto follow = [this] { m_panel->follow(m_table->currentIndex()); };
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, m_panel, follow);
    connect(&m_model, &ContactTableModel::modelReset, m_panel, follow); // the table's place is back
    connect(m_panel, &ContactPanel::actionRequested, this, &ContentView::performAction);
    connect(m_drop, &FileDrop::importRequested, this, &ContentView::importWorkbook);
}

void ContentView::togglePanel()
{
    if (m_panel->isAncestorOf(focusWidget()))
        m_table->setFocus();
    m_panel->setVisible(m_panel->isHidden());
    m_platform.preferences.setFlag(ContactPanel::preference, !m_panel->isHidden());
}

void ContentView::enterPanel()
{
    if (m_panel->isAncestorOf(focusWidget()))
        return m_table->setFocus(Qt::ShortcutFocusReason);
    if (m_panel->isHidden())
        togglePanel();
    m_panel->enter();
}

void ContentView::keepTypedText()
{
    m_table->keepTypedText();
    m_panel->keepTypedText();
}

/// What was being typed is an act too.
void ContentView::undoLast()
{
    keepTypedText();
    m_outcome->tell(m_model.undoList().undoLast());
}

void ContentView::undo(int act) { m_outcome->tell(m_model.undoList().undo(act)); }

void ContentView::performAction(RowAction action, const QString &id)
{
    const bool attaches =
        action.kind == RowAction::chooseAttachment || action.kind == RowAction::removeAttachment;
    if (attaches)
        m_model.undoList().record(columnOf(SortColumn::attachment), {id},
                                  [&] { m_rows->perform(action, id); });
    else
        m_rows->perform(action, id);
}

/// Many come by an import, which has a report.
void ContentView::tellOfArrival(const QSet<QString> &ids)
{
    const QString id = *ids.begin();
    const Prospect *contact = m_store.prospect(id);
    if (ids.size() > 1 || !contact)
        return;
    const QString line = u"Contact ajouté : "_s + oneLine(contact->label);
    if (m_model.contacts().rowOf(id) != ContactList::none)
        return m_outcome->tell(line);
    m_outcome->tell(line + u", que la recherche ou un filtre ne montre pas"_s, u"Tout afficher"_s,
                    [this, id] {
                        showAll();
                        m_table->reveal(id);
                        m_outcome->tell({});
                    });
}

} // namespace quenoria
