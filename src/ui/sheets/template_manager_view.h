#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;

/// Creates, edits and deletes the message templates.
class MessageManagerView : public Sheet {
    Q_OBJECT

public:
    MessageManagerView(ProspectStore &store, QWidget *parent);
};

/// Creates, edits and deletes the e-mail templates.
class EmailMessageManagerView : public Sheet {
    Q_OBJECT

public:
    EmailMessageManagerView(ProspectStore &store, QWidget *parent);
};

} // namespace quenoria
