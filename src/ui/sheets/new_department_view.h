#pragma once

#include "ui/kit/sheet.h"

class QLineEdit;

namespace quenoria {

class ProspectStore;
class StatusLabel;

/// Creates a department from inside a contact form.
class NewDepartmentView : public Sheet {
    Q_OBJECT

public:
    NewDepartmentView(ProspectStore &store, QWidget *parent);

    bool hasUnsavedInput() const override;

Q_SIGNALS:
    /// The department exists now; the form that opened the sheet selects it.
    void created(const QString &code);

protected:
    void saveInput() override { create(); }

private:
    void create();

    ProspectStore &m_store;
    QLineEdit *m_code;
    QLineEdit *m_name;
    StatusLabel *m_error;
};

} // namespace quenoria
