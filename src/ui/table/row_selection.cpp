// Several rows at once: how they are selected, and what is done with all of them.

#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QKeyEvent>

#include <algorithm>

namespace quenoria {

namespace {

bool movesSideways(const QEvent *event)
{
    if (!event || event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

/// Going to another column of a selected row leaves the selection as it is: it is on the way to the
/// box that is to be ticked in all of them.
QItemSelectionModel::SelectionFlags ContactTableView::selectionCommand(const QModelIndex &index,
                                                                       const QEvent *event) const
{
    if (movesSideways(event) && index.row() == currentIndex().row() && selectsSeveral())
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}

/// Whole rows are selected, so that the ranges tell them.
std::vector<int> ContactTableView::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    return rows;
}

/// Among them the current one: elsewhere, a cell stands for itself.
bool ContactTableView::selectsSeveral() const
{
    const QItemSelection selection = selectionModel()->selection();
    const bool areSeveral =
        selection.size() > 1 || (!selection.empty() && selection[0].height() > 1);
    return areSeveral && selectionModel()->isSelected(currentIndex());
}

IdSet ContactTableView::selectedContacts() const
{
    IdSet ids;
    for (const int row : selectedRows())
        ids.insert(m_model.contacts().at(row).id);
    return ids;
}

bool ContactTableView::selectionIsTicked(int column) const
{
    const std::vector<int> rows = selectedRows();
    int ticked = 0;
    const auto isLeft = [&](int row) {
        const QModelIndex box = m_model.index(row, column);
        if (!(box.flags() & Qt::ItemIsUserCheckable))
            return false;
        ++ticked;
        return box.data(Qt::CheckStateRole).toInt() != Qt::Checked;
    };
    return std::ranges::none_of(rows, isLeft) && ticked > 0;
}

void ContactTableView::toggleSelection(int column)
{
    Q_EMIT tickRequested(column, !selectionIsTicked(column));
}

} // namespace quenoria
