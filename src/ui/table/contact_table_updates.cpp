#include "ui/table/contact_table_model.h"

#include "store/together.h"

namespace quenoria {

namespace {

/// Finding rows one by one costs more than painting them all anew when they are many.
constexpr std::size_t mostFoundAlone = 100;

} // namespace

void ContactTableModel::follow(const Change &change)
{
    std::visit(
        Following{[this](const ContactsChanged &contacts) { refreshContacts(contacts.ids); },
                  [this](const SelectionChanged &selection) { refreshContacts(selection.ids); },
                  [this](const ListReshaped &) { refreshSoon(); },
                  [this](const TemplatesChanged &) { refreshSoon(); },
                  [this](const DepartmentsChanged &) { refreshSoon(); },
                  Ignoring<QuotaChanged, TestNumberChanged>()},
        change);
}

void ContactTableModel::refreshContacts(const IdSet &ids)
{
    if (m_refreshIsDue)
        return refreshSoon();
    if (ids.size() > mostFoundAlone)
        return refreshMany(ids);
    for (const QString &id : ids) {
        m_state.attachmentsFound.remove(id);
        for (const std::uint32_t entry : m_list.entriesOf(id)) {
            if (const int row = m_list.reload(entry); row != ContactList::none)
                Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
        }
    }
    Q_EMIT changed();
}

void ContactTableModel::refreshMany(const IdSet &ids)
{
    for (const QString &id : ids)
        m_state.attachmentsFound.remove(id);
    m_list.reloadEach(ids);
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT changed();
}

ManyContacts ContactTableModel::tickMany(int column, bool ticked, const IdSet &ids)
{
    const ContactColumn &descriptor = contactColumns()[std::size_t(column)];
    ManyContacts outcome;
    m_undo.record(column, ids,
                  [&] { outcome = descriptor.tickMany(m_store, m_state, ticked, ids); });
    if (descriptor.keptByTable) { // the store announces nothing
        m_allAreTicked.reset();
        announce(&ContactColumn::keptByTable);
    }
    return outcome;
}

void ContactTableModel::pickMany(int column, const QString &choice, const IdSet &ids)
{
    m_undo.record(column, ids, [&] {
        const Together together(m_store);
        for (const QString &id : ids) {
            if (const Prospect *contact = m_store.prospect(id))
                contactColumns()[std::size_t(column)].edit({m_store, m_state, *contact}, choice);
        }
    });
}

void ContactTableModel::setUnderWay(Channel channel, const QString &contactId, bool isUnderWay)
{
    IdSet &contacts = m_state.underWay[channel];
    if (isUnderWay)
        contacts.insert(contactId);
    else
        contacts.erase(contactId);
    refreshContacts({contactId});
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
    const QSet<QString> came = m_list.rebuild();
    m_state.arrived += came;
    m_allAreTicked.reset();
    endResetModel();
    Q_EMIT changed();
    if (came.isEmpty())
        return;
    m_arrival.start();
    Q_EMIT arrived(came);
}

/// The columns that have the property changed in every row.
void ContactTableModel::announce(bool ContactColumn::*property)
{
    for (const int column : columnsThat(property)) {
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
        Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
    }
    Q_EMIT changed();
}

} // namespace quenoria
