#pragma once

#include "ui/kit/sheet.h"

namespace quenoria {

class ProspectStore;

/// Tries a message template on the user’s own number.
class TestMessageView : public Sheet {
    Q_OBJECT

public:
    TestMessageView(ProspectStore &store, QWidget *parent);
};

} // namespace quenoria
