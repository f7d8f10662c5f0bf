#include "ui/sheets/report_model.h"

#include "ui/kit/plain_text.h"

namespace quenoria {

namespace {

/// The names on the left, the numbers and what stands over them on the right.
QVariant alignmentOf(int column)
{
    return QVariant::fromValue((column > 0 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

} // namespace

void ReportModel::setPage(const ReportPage &page)
{
    beginResetModel();
    m_page = page;
    endResetModel();
}

int ReportModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_page.rows.size());
}

int ReportModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_page.columns.size());
}

QVariant ReportModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(index.column());
    if (role != Qt::DisplayRole)
        return {};
    return oneLine(shownCell(m_page.rows[std::size_t(index.row())][std::size_t(index.column())]));
}

QVariant ReportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    if (orientation == Qt::Vertical || role != Qt::DisplayRole)
        return {};
    return m_page.columns[std::size_t(section)].title;
}

} // namespace quenoria
