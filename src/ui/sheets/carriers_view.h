#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class Carriers;
class ProspectStore;

/// The ways by which messages leave this computer: what was found, what was chosen, and whether
/// it works.
class CarriersView : public Sheet {
    Q_OBJECT

public:
    CarriersView(Carriers &carriers, ProspectStore &store, QWidget *parent);
};

} // namespace quenoria
