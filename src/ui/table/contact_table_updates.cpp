#include "ui/table/contact_table_model.h"

namespace quenoria {

namespace {

/// Records that only ever concern the contact that is named; the other collections shape the list
/// or lend their texts to many contacts.
bool belongsToOneContact(Collection collection)
{
    return collection == Collection::statuses || collection == Collection::emailStatuses ||
           collection == Collection::messageAssignments ||
           collection == Collection::emailAssignments || collection == Collection::attachmentPaths;
}

} // namespace

void ContactTableModel::follow(Collection collection, const QString &contactId)
{
    if (collection == Collection::smsMonthlyRecipientsByMonth)
        return;
    if (!contactId.isEmpty() && belongsToOneContact(collection))
        refreshContact(contactId);
    else
        refreshSoon();
}

void ContactTableModel::refreshContact(const QString &id)
{
    m_state.attachmentsFound.remove(id);
    for (const std::uint32_t entry : m_list.entriesOf(id))
        refreshEntry(entry);
    Q_EMIT changed();
}

void ContactTableModel::refreshEntry(std::uint32_t entry)
{
    const ContactList::Change change = m_list.reload(entry);
    const auto [from, to] = change;
    if (to == ContactList::none && from == ContactList::none)
        return;
    if (from == to) {
        Q_EMIT dataChanged(index(to, 0), index(to, columnCount() - 1));
        return;
    }
    m_allAreTicked.reset();
    if (from == ContactList::none) {
        beginInsertRows({}, to, to);
        m_list.move(entry, change);
        endInsertRows();
    } else if (to == ContactList::none) {
        beginRemoveRows({}, from, from);
        m_list.move(entry, change);
        endRemoveRows();
    } else {
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        m_list.move(entry, change);
        endMoveRows();
        Q_EMIT dataChanged(index(to, 0), index(to, columnCount() - 1));
    }
}

/// Several collections often change together; the rows keep their own copies of the contacts, so
/// the old list can still be shown until all have.
void ContactTableModel::refreshSoon()
{
    if (std::exchange(m_refreshIsDue, true))
        return;
    QMetaObject::invokeMethod(this, &ContactTableModel::refresh, Qt::QueuedConnection);
}

void ContactTableModel::refresh()
{
    m_refreshIsDue = false;
    beginResetModel();
    m_state.attachmentsFound.clear();
    m_list.rebuild();
    m_allAreTicked.reset();
    endResetModel();
    Q_EMIT changed();
}

/// One column changed in every row.
void ContactTableModel::announceColumn(int column)
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
    Q_EMIT changed();
}

} // namespace quenoria
