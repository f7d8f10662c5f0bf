#include "ui/table/contact_table_model.h"

#include "platform/clock.h"
#include "ui/channels/channel_descriptor.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::chrono::seconds arrivalShown{3};

const ContactColumn &columnAt(int section) { return contactColumns()[std::size_t(section)]; }

QString headerText(int section) { return QString::fromUtf16(columnAt(section).header); }

QString markText(ContactMark mark)
{
    switch (mark) {
    case ContactMark::none:
        return {};
    case ContactMark::sent:
        return u"envoyé"_s;
    case ContactMark::stopped:
        return u"STOP"_s;
    }
    Q_UNREACHABLE();
}

/// What a member of the column gives, if the column has it.
template <typename Offer, typename Source>
QVariant offered(const Offer &offer, const Source &source)
{
    return offer ? QVariant::fromValue(offer(source)) : QVariant();
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

QVariant checkState(const QVariant &on)
{
    return on.toBool() ? int(Qt::Checked) : int(Qt::Unchecked);
}

QString shownText(const ContactColumn &column, const Cell &cell)
{
    const QString text = column.text(cell);
    return text.isEmpty() ? QString::fromUtf16(column.placeholder) : text;
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

Qt::ItemFlags ContactTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    const ContactColumn &column = columnAt(index.column());
    if (!mayAsk(column))
        return flags;
    if (column.kind == CellKind::check && (!column.available || column.available(cell(index))))
        flags |= Qt::ItemIsUserCheckable;
    else if (column.kind == CellKind::date || column.kind == CellKind::field)
        flags |= Qt::ItemIsEditable;
    return flags;
}

Cell ContactTableModel::cell(const QModelIndex &index) const
{
    return {m_store, m_state, m_list.at(index.row())};
}

/// A start shows the contacts before the histories are read, for which whoever asks would wait.
bool ContactTableModel::mayAsk(const ContactColumn &column) const
{
    return m_store.isReady() || !column.tellsOfSends;
}

QVariant ContactTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ContactColumn &column = columnAt(index.column());
    if (!mayAsk(column))
        return role == KindRole ? int(CellKind::text) : QVariant();
    const Cell seen = cell(index);
    switch (role) {
    case Qt::DisplayRole:
        return offered(column.text, seen);
    case Qt::EditRole:
        return offered(column.value, seen);
    case Qt::CheckStateRole:
        return column.kind == CellKind::check ? checkState(column.value(seen)) : QVariant();
    case Qt::AccessibleTextRole:
        return accessibleText(index);
    case KindRole:
        return int(column.kind);
    case ButtonsRole:
        return offered(column.buttons, seen);
    case ChoicesRole:
        return offered(column.choices, m_store);
    case MarkRole:
        return m_store.isReady() ? offered(column.mark, seen) : QVariant();
    case WarningRole:
        return offered(column.warning, seen);
    case ArrivedRole:
        return m_state.arrived.contains(seen.contact.id);
    case PlaceholderRole:
        return QString::fromUtf16(column.placeholder);
    default:
        return {};
    }
}

bool ContactTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid())
        return false;
    const ContactColumn &column = columnAt(index.column());
    const int expected = column.kind == CellKind::check ? Qt::CheckStateRole : Qt::EditRole;
    if (!column.edit || role != expected)
        return false;
    const Prospect contact = m_list.at(index.row()); // the row may move while the store publishes
    const QVariant edited =
        role == Qt::CheckStateRole ? QVariant(value.toInt() == Qt::Checked) : value;
    m_undo.record(index.column(), {contact.id}, [&] {
        column.edit({m_store, m_state, contact}, edited);
    });
    if (column.keptByTable) { // the store announces nothing
        m_allAreTicked.reset();
        Q_EMIT dataChanged(index, index);
        Q_EMIT headerDataChanged(Qt::Horizontal, index.column(), index.column());
        Q_EMIT changed();
    }
    return true;
}

/// "Contact : DUPONT — BREST (29), STOP" and the like: what the cell shows, read aloud.
QString ContactTableModel::accessibleText(const QModelIndex &index) const
{
    const ContactColumn &column = columnAt(index.column());
    const Cell seen = cell(index);
    QStringList parts;
    if (column.text)
        parts << shownText(column, seen);
    else if (column.value)
        parts << (column.value(seen).toBool() ? u"coché"_s : u"non coché"_s);
    if (column.mark && m_store.isReady())
        parts << markText(column.mark(seen));
    if (column.warning)
        parts << column.warning(seen);
    if (column.kind == CellKind::date)
        parts << u"%1 envoi(s)"_s.arg(m_store.sendHistory(seen.contact).size());
    else if (column.buttons) {
        for (const CellButton &button : column.buttons(seen))
            parts << button.name;
    }
    if (!column.namesContact)
        parts << seen.contact.label;
    parts.removeAll(QString());
    return headerText(index.column()) + u" : "_s + parts.join(u", "_s);
}

QVariant ContactTableModel::headerTick(int section) const
{
    if (!columnAt(section).keptByTable)
        return {};
    return allAreTicked() ? Qt::Checked : Qt::Unchecked;
}

QVariant ContactTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const bool isCurrent = columnAt(section).sort == m_list.sortColumn();
    const bool ascending = m_list.sortOrder() == Qt::AscendingOrder;
    switch (role) {
    case Qt::DisplayRole:
        return headerText(section);
    case Qt::CheckStateRole:
        return headerTick(section);
    case Qt::ToolTipRole:
        return headerTick(section).isValid()
                   ? u"Cocher ou décocher tous les contacts actuellement affichés"_s
                   : QVariant();
    case SortDirectionRole:
        return isCurrent ? QVariant(int(m_list.sortOrder())) : QVariant();
    case Qt::AccessibleTextRole:
        if (!isCurrent)
            return headerText(section);
        return headerText(section) + (ascending ? u", tri croissant"_s : u", tri décroissant"_s);
    default:
        return {};
    }
}

void ContactTableModel::sort(int column, Qt::SortOrder order)
{
    if (!columnAt(column).sort)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::uint32_t> entries;
    for (const QModelIndex &index : before)
        entries.push_back(m_list.entryAt(index.row()));
    m_list.sort(*columnAt(column).sort, order);
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
        columnAt(column).sort == m_list.sortColumn() && m_list.sortOrder() == Qt::AscendingOrder;
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
