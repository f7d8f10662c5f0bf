// Rows that are replaced as a whole would take the current cell and what is in sight with them.

#include "ui/table/contact_table_model.h"
#include "ui/table/contact_table_view.h"

#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quenoria {

void ContactTableView::keepPlace()
{
    const Prospect *current = currentContact();
    m_kept.contact = current ? current->id : QString();
    m_kept.row = currentIndex().row();
    m_kept.column = currentIndex().column();
    setHot({});
}

/// The first contact that is still there afterwards goes where it was: the current one if it can be
/// seen, else the topmost.
void ContactTableView::keepSight()
{
    m_kept.selected = selectsSeveral() ? selectedContacts() : IdSet();
    m_kept.sight.clear();
    const int last = rowAt(viewport()->height() - 1);
    const int end = last < 0 ? m_model.rowCount() : last + 1;
    for (int row = rowAt(0); row >= 0 && row < end; ++row)
        m_kept.sight.push_back({m_model.contacts().at(row).id, rowViewportPosition(row)});
    const Prospect *current = currentContact();
    const auto isCurrent = [current](const KeptPlace::Sight &each) {
        return current && each.contact == current->id;
    };
    std::stable_partition(m_kept.sight.begin(), m_kept.sight.end(), isCurrent);
}

void ContactTableView::returnToPlace()
{
    const int sideways = horizontalScrollBar()->value();
    executeDelayedItemsLayout(); // or the bars do not know the rows yet
    const bool hadCurrent = !m_kept.contact.isNull();
    int row = hadCurrent ? m_model.contacts().rowOf(m_kept.contact) : ContactList::none;
    const bool wasDeleted = row == ContactList::none && !m_kept.sight.empty();
    if (hadCurrent && wasDeleted) // its neighbour is
        row = std::min(m_kept.row, m_model.rowCount() - 1);
    setAutoScroll(m_kept.sight.empty()); // after a search, it is what one looks for
    if (row >= 0)
        selectionModel()->setCurrentIndex(m_model.index(row, m_kept.column),
                                          QItemSelectionModel::ClearAndSelect |
                                              QItemSelectionModel::Rows);
    else if (m_kept.sight.empty())
        verticalScrollBar()->setValue(0); // what was found begins there
    setAutoScroll(true);
    selectAgain(std::exchange(m_kept.selected, {}));
    if (!m_kept.sight.empty()) {
        returnToSight();
        horizontalScrollBar()->setValue(sideways);
    }
}

/// What comes under the table takes the last rows, and must not take the current one with them.
void ContactTableView::keepCurrentInSight(int height)
{
    const QRect current = visualRect(currentIndex());
    const bool wasSeen = current.isValid() && current.top() >= 0 && current.bottom() < height;
    if (wasSeen && current.bottom() >= viewport()->height())
        reveal(currentContact()->id);
}

void ContactTableView::returnToSight()
{
    for (const auto &[contact, y] : std::exchange(m_kept.sight, {})) {
        const int row = m_model.contacts().rowOf(contact);
        if (row == ContactList::none)
            continue;
        QScrollBar &bar = *verticalScrollBar();
        return bar.setValue(bar.value() + rowViewportPosition(row) - y);
    }
}

/// Rows one after the other become one range, so that many cost no more than a few.
void ContactTableView::selectAgain(const IdSet &ids)
{
    QItemSelection rows;
    int first = ContactList::none;
    for (int row = 0; !ids.empty() && row <= m_model.rowCount(); ++row) {
        const bool isSelected =
            row < m_model.rowCount() && ids.contains(m_model.contacts().at(row).id);
        if (isSelected && first == ContactList::none)
            first = row;
        if (isSelected || first == ContactList::none)
            continue;
        rows.select(m_model.index(first, 0), m_model.index(row - 1, m_model.columnCount() - 1));
        first = ContactList::none;
    }
    if (!rows.isEmpty())
        selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void ContactTableView::reveal(const QString &contactId)
{
    const int row = m_model.contacts().rowOf(contactId);
    if (row == ContactList::none)
        return;
    const int sideways = horizontalScrollBar()->value();
    scrollTo(m_model.index(row, 0));
    horizontalScrollBar()->setValue(sideways);
}

} // namespace quenoria
