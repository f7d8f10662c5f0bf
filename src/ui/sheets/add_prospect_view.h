#pragma once

#include "ui/kit/sheet.h"
#include "ui/sheets/contact_fields.h"

namespace quenoria {

class ContactForm;
class StatusLabel;

/// Types a new contact in.
class AddProspectView : public Sheet {
    Q_OBJECT

public:
    AddProspectView(ProspectStore &store, QWidget *parent);

    bool hasUnsavedInput() const override;

protected:
    void saveInput() override { add(); }

private:
    void createDepartment();
    void add();

    ProspectStore &m_store;
    ContactFields m_fields = newContactFields();
    ContactForm *m_form;
    StatusLabel *m_error;
};

} // namespace quenoria
