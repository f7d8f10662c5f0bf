#pragma once

#include "ui/sheets/report_pages.h"

#include <QAbstractTableModel>

namespace quenoria {

/// The rows of one page of the report, to read.
class ReportModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setPage(const ReportPage &page);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    ReportPage m_page;
};

} // namespace quenoria
