#pragma once

#include <QTableView>

namespace quenoria {

class CheckModel;

/// The rows of a checked workbook, to be read.
class CheckTable : public QTableView {
    Q_OBJECT

public:
    explicit CheckTable(CheckModel &model);
};

} // namespace quenoria
