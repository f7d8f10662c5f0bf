#include "ui/sheets/check_model.h"

#include "ui/kit/plain_text.h"
#include "ui/kit/symbol.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::array titles{u"Ligne", u"Résultat", u"Nom", u"Mobile", u"E-mail", u"Département"};
static_assert(titles.size() == CheckModel::columns);

QIcon markOf(CheckedEnd end)
{
    switch (end) {
    case CheckedEnd::added:
        return symbol(u"plus.circle.fill"_s, Tint::positive);
    case CheckedEnd::addressUpdate:
        return symbol(u"pencil"_s, Tint::accent);
    case CheckedEnd::duplicate:
        return symbol(u"checkmark.circle"_s, Tint::secondary);
    case CheckedEnd::erased:
        return symbol(u"hand.raised.circle.fill"_s, Tint::secondary);
    case CheckedEnd::nameless:
    case CheckedEnd::unreachable:
    case CheckedEnd::noDepartment:
        break;
    }
    return symbol(u"exclamationmark.triangle.fill"_s, Tint::negative);
}

} // namespace

void CheckModel::setCheck(WorkbookCheck check)
{
    m_check = std::move(check);
    std::vector<CheckedEnd> all;
    for (std::size_t end = 0; end < checkedEnds; ++end)
        all.push_back(CheckedEnd(end));
    show(all);
}

void CheckModel::show(const std::vector<CheckedEnd> &ends)
{
    beginResetModel();
    m_shown.clear();
    m_matching = 0;
    for (const CheckedEnd end : ends)
        m_matching += m_check.count(end);
    for (std::size_t row = 0; row < m_check.rows.size(); ++row) {
        if (m_shown.size() < WorkbookCheck::mostRows &&
            std::ranges::find(ends, m_check.rows[row].end) != ends.end())
            m_shown.push_back(row);
    }
    endResetModel();
}

int CheckModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

int CheckModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columns);
}

QVariant CheckModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const CheckedRow &row = m_check.rows[m_shown[std::size_t(index.row())]];
    switch (role) {
    case Qt::DisplayRole:
        return oneLine(text(row, index.column()));
    case Qt::ToolTipRole:
        return tipText(text(row, index.column()));
    case Qt::DecorationRole:
        return index.column() == outcome ? markOf(row.end) : QVariant();
    default:
        return {};
    }
}

QVariant CheckModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return QString::fromUtf16(titles[std::size_t(section)]);
}

QString CheckModel::text(const CheckedRow &row, int column) const
{
    switch (column) {
    case number:
        return m_check.sheetsWithHeader > 1 ? u"%1 : %2"_s.arg(row.sheet).arg(row.number)
                                            : QString::number(row.number);
    case outcome:
        return row.outcome;
    case name:
        return row.name;
    case mobile:
        return row.mobile;
    case email:
        return row.email;
    default:
        return row.place;
    }
}

} // namespace quenoria
