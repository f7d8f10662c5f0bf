#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;

/// Creates a department from inside a contact form.
class NewDepartmentView : public Sheet {
    Q_OBJECT

public:
    NewDepartmentView(ProspectStore &store, QWidget *parent);

Q_SIGNALS:
    /// The department exists now; the form that opened the sheet selects it.
    void created(const QString &code);
};

} // namespace quenoria
