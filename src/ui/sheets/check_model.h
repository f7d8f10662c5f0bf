#pragma once

#include "import/workbook_check.h"

#include <QAbstractTableModel>

namespace quenoria {

/// The rows of a checked workbook that have one of some ends: the first of them.
class CheckModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { number, outcome, name, mobile, email, place, columns };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows every row first.
    void setCheck(WorkbookCheck check);
    const WorkbookCheck &check() const { return m_check; }

    void show(const std::vector<CheckedEnd> &ends);
    int matching() const { return m_matching; } ///< rows of these ends, also beyond the first

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QString text(const CheckedRow &row, int column) const;

    WorkbookCheck m_check;
    std::vector<std::size_t> m_shown; ///< places in the check
    int m_matching = 0;
};

} // namespace quenoria
