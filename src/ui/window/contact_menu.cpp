#include "ui/window/contact_menu.h"

#include "ui/kit/plain_text.h"
#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The choices of a column of pickers, for all selected contacts.
void addPicker(QMenu &menu, ContactTableView &table, ContactTableModel &model, int column)
{
    QMenu *picker = menu.addMenu(model.headerData(column, Qt::Horizontal).toString());
    for (const CellChoice &choice : model.index(0, column).data(ChoicesRole).value<CellChoices>())
        picker->addAction(menuText(choice.title), &table, [&table, &model, column, id = choice.id] {
            model.pickMany(column, id, table.selectedContacts());
        });
}

} // namespace

ContactMenu::ContactMenu(ContactTableModel &model, const QString &contactId)
    : m_model(model), m_contactId(contactId), m_row(model.contacts().rowOf(contactId))
{
}

void ContactMenu::fill(QMenu &menu) const
{
    if (m_row == ContactList::none)
        return;
    menu.addAction(u"Modifier le contact\tEntrée"_s, edit);
    menu.addAction(u"Dossier du contact\tCtrl+I"_s, showDossier);
    menu.addSeparator();
    addButtons(menu);
    menu.addSeparator();
    addTicks(menu);
}

void ContactMenu::addButtons(QMenu &menu) const
{
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const QModelIndex cell = m_model.index(m_row, column);
        for (const CellButton &button : cell.data(ButtonsRole).value<CellButtons>())
            menu.addAction(button.name, [act = act, action = button.action] { act(action); })
                ->setEnabled(button.enabled);
    }
}

void ContactMenu::addTicks(QMenu &menu) const
{
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const QPersistentModelIndex cell = m_model.index(m_row, column);
        const QVariant state = cell.data(Qt::CheckStateRole);
        if (!state.isValid())
            continue;
        QAction *tick = menu.addAction(m_model.headerData(column, Qt::Horizontal).toString());
        tick->setCheckable(true);
        tick->setChecked(state.toInt() == Qt::Checked);
        tick->setEnabled(cell.flags() & Qt::ItemIsUserCheckable);
        QObject::connect(tick, &QAction::toggled, &m_model, [&model = m_model, cell](bool on) {
            model.setData(cell, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        });
    }
}

void fillSelectionMenu(QMenu &menu, ContactTableView &table, ContactTableModel &model)
{
    menu.addAction(u"%1 contacts sélectionnés"_s.arg(table.selectedContacts().size()))
        ->setEnabled(false);
    menu.addSeparator();
    const auto columns = contactColumns();
    for (int column = 0; column < int(columns.size()); ++column) {
        if (!columns[std::size_t(column)].tickMany)
            continue;
        QAction *tick = menu.addAction(QString::fromUtf16(columns[std::size_t(column)].header),
                                       &table, [&table, column] { table.toggleSelection(column); });
        tick->setCheckable(true);
        tick->setChecked(table.selectionIsTicked(column));
    }
    menu.addSeparator();
    for (int column = 0; column < int(columns.size()); ++column) {
        if (columns[std::size_t(column)].kind == CellKind::picker)
            addPicker(menu, table, model, column);
    }
}

} // namespace quenoria
