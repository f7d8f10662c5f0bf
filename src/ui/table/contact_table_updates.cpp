#include "ui/table/contact_table_model.h"

namespace quenoria {

namespace {

/// Records that only ever concern the contact that is named; the other collections shape the list
/// or lend their texts to many contacts.
bool belongsToOneContact(Collection collection)
{
    return collection == Collection::statuses || collection == Collection::emailStatuses ||
           collection == Collection::messageAssignments ||
           collection == Collection::emailAssignments ||
           collection == Collection::attachmentPaths ||
           collection == Collection::contactOverrides || collection == Collection::emailOverrides;
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
    for (const std::uint32_t entry : m_list.entriesOf(id)) {
        if (const int row = m_list.reload(entry); row != ContactList::none)
            Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    }
    Q_EMIT changed();
}

void ContactTableModel::setUnderWay(Channel channel, const QString &contactId, bool isUnderWay)
{
    IdSet &contacts = channel == Channel::sms ? m_state.smsUnderWay : m_state.emailUnderWay;
    if (isUnderWay)
        contacts.insert(contactId);
    else
        contacts.erase(contactId);
    refreshContact(contactId);
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
    Q_EMIT aboutToReplaceRows();
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
