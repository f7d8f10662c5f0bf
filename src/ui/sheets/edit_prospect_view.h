#pragma once

#include "ui/kit/sheet.h"
#include "ui/sheets/contact_fields.h"

namespace quenoria {

class StatusLabel;

/// Changes one contact; its histories stay.
class EditProspectView : public Sheet {
    Q_OBJECT

public:
    EditProspectView(ProspectStore &store, const Prospect &prospect, QWidget *parent);

    bool hasUnsavedInput() const override;

protected:
    void saveInput() override { save(); }

private:
    void save();

    ProspectStore &m_store;
    Prospect m_prospect;
    ContactFields m_fields;
    StatusLabel *m_error;
};

} // namespace quenoria
