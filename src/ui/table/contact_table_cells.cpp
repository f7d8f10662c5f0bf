// What the table's model tells of its cells and headers, and takes from them.

#include "ui/table/contact_table_model.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

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

} // namespace quenoria
