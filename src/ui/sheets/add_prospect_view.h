#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;

/// Types a new contact in.
class AddProspectView : public Sheet {
    Q_OBJECT

public:
    AddProspectView(ProspectStore &store, QWidget *parent);
};

} // namespace quenoria
