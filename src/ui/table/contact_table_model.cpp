#include "ui/table/contact_table_model.h"

#include "platform/clock.h"
#include "ui/channels/channel_descriptor.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::chrono::seconds arrivalShown{3};

const std::optional<SortColumn> &sortOf(int column)
{
    return contactColumns()[std::size_t(column)].sort;
}

std::set<Channel> automaticChannels(const Switches &switches)
{
    std::set<Channel> automatic;
    for (const ChannelDescriptor *channel : channels()) {
        if (channel->isAutomatic(switches))
            automatic.insert(channel->channel);
    }
    return automatic;
}

} // namespace

ContactTableModel::ContactTableModel(ProspectStore &store, Switches &switches, const Clock &clock,
                                     QObject *parent)
    : QAbstractTableModel(parent),
      m_store(store), m_state{.clock = clock, .automatic = automaticChannels(switches)},
      m_undo(store, m_state), m_list(store, m_state)
{
    m_arrival.setSingleShot(true);
    m_arrival.setInterval(arrivalShown);
    connect(&m_arrival, &QTimer::timeout, this, [this] {
        m_state.arrived.clear();
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1),
                               {ArrivedRole});
    });
    connect(&store, &ProspectStore::published, this, &ContactTableModel::follow);
    connect(&switches, &Switches::changed, this, [this, &switches] {
        m_state.automatic = automaticChannels(switches);
        announce(&ContactColumn::followsSwitches);
    });
}

int ContactTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_list.size();
}

int ContactTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(contactColumns().size());
}

void ContactTableModel::sort(int column, Qt::SortOrder order)
{
    if (!sortOf(column))
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::uint32_t> entries;
    for (const QModelIndex &index : before)
        entries.push_back(m_list.entryAt(index.row()));
    m_list.sort(*sortOf(column), order);
    const std::vector<int> rows = m_list.rowsOfEntries();
    QModelIndexList after;
    for (qsizetype moved = 0; moved < before.size(); ++moved)
        after << index(rows[entries[std::size_t(moved)]], before[moved].column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void ContactTableModel::toggleSort(int column)
{
    const bool turnsRound =
        sortOf(column) == m_list.sortColumn() && m_list.sortOrder() == Qt::AscendingOrder;
    sort(column, turnsRound ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ContactTableModel::setSearchText(const QString &text)
{
    if (text == m_list.searchText())
        return;
    beginResetModel();
    m_list.setSearchText(text);
    m_allAreTicked.reset();
    endResetModel();
    Q_EMIT changed();
}

void ContactTableModel::setFilter(const ContactFilter &filter)
{
    if (filter == m_list.filter())
        return;
    beginResetModel();
    m_list.setFilter(filter);
    m_allAreTicked.reset();
    endResetModel();
    Q_EMIT changed();
}

void ContactTableModel::clearDeleteSelection()
{
    m_state.deleteSelection.clear();
    m_allAreTicked.reset();
    announce(&ContactColumn::keptByTable);
}

bool ContactTableModel::allAreTicked() const
{
    const auto isTicked = [this](int row) {
        return m_state.deleteSelection.contains(m_list.at(row).id);
    };
    if (!m_allAreTicked) {
        bool all = m_list.size() > 0 && m_state.deleteSelection.size() > 0;
        for (int row = 0; all && row < m_list.size(); ++row)
            all = isTicked(row);
        m_allAreTicked = all;
    }
    return *m_allAreTicked;
}

IdSet ContactTableModel::shownContacts() const
{
    IdSet ids;
    for (int row = 0; row < m_list.size(); ++row)
        ids.insert(m_list.at(row).id);
    return ids;
}

void ContactTableModel::tickAll(bool ticked)
{
    for (const int column : columnsThat(&ContactColumn::keptByTable))
        tickMany(column, ticked, shownContacts());
}

void ContactTableModel::lookForAttachments()
{
    m_state.attachmentsFound.clear();
    m_list.filterAnew();
    if (m_list.size() == 0)
        return;
    for (const int column : columnsThat(&ContactColumn::followsDisk))
        Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
}

} // namespace quenoria
