#pragma once

#include "ui/sheets/template_manager_view.h"

namespace quenoria {

/// The templates of SMS.
class MessageManagerView : public TemplateManagerView {
public:
    MessageManagerView(ProspectStore &store, QWidget *parent)
        : TemplateManagerView(store, smsChannel(), parent)
    {
    }
};

/// The templates of e-mails.
class EmailMessageManagerView : public TemplateManagerView {
public:
    EmailMessageManagerView(ProspectStore &store, QWidget *parent)
        : TemplateManagerView(store, emailChannel(), parent)
    {
    }
};

} // namespace quenoria
