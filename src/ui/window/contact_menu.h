#pragma once

#include "ui/table/cell_roles.h"

#include <functional>

class QMenu;

namespace quenoria {

class ContactTableModel;
class ContactTableView;

/// Offers in a menu whatever the cells of one row offer: ticks, buttons, and editing the contact.
class ContactMenu {
public:
    ContactMenu(ContactTableModel &model, const QString &contactId);

    std::function<void()> edit;
    std::function<void()> showDossier;
    std::function<void(RowAction)> act;

    void fill(QMenu &menu) const;

private:
    void addButtons(QMenu &menu) const;
    void addTicks(QMenu &menu) const;

    ContactTableModel &m_model;
    QString m_contactId;
    int m_row;
};

/// Offers the ticks and the templates of all selected contacts together.
void fillSelectionMenu(QMenu &menu, ContactTableView &table, ContactTableModel &model);

} // namespace quenoria
