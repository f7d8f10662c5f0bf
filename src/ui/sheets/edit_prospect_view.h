#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;
struct Prospect;

/// Changes one contact; its histories stay.
class EditProspectView : public Sheet {
    Q_OBJECT

public:
    EditProspectView(ProspectStore &store, const Prospect &prospect, QWidget *parent);
};

} // namespace quenoria
