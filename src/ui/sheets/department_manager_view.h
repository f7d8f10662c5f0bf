#pragma once

#include "ui/kit/sheet.h"

class QLineEdit;
class QTreeWidget;

namespace quenoria {

class ProspectStore;
class StatusLabel;

/// Lists the departments and adds one.
class DepartmentManagerView : public Sheet {
    Q_OBJECT

public:
    DepartmentManagerView(ProspectStore &store, QWidget *parent);

private:
    void addEntryRow();
    void addList();
    void add();
    void fillList();

    ProspectStore &m_store;
    QLineEdit *m_code;
    QLineEdit *m_name;
    StatusLabel *m_result;
    QTreeWidget *m_list;
};

} // namespace quenoria
