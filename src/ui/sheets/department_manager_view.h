#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;

/// Lists the departments and adds one.
class DepartmentManagerView : public Sheet {
    Q_OBJECT

public:
    DepartmentManagerView(ProspectStore &store, QWidget *parent);
};

} // namespace quenoria
