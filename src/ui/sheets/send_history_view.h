#pragma once

#include "model/records.h"
#include "ui/kit/sheet.h"

class QTimeZone;

namespace quenoria {

class ProspectStore;

/// Lists the confirmed SMS of one contact, newest first.
class SendHistoryView : public Sheet {
    Q_OBJECT

public:
    SendHistoryView(ProspectStore &store, const QTimeZone &zone, const Prospect &prospect,
                    QWidget *parent);
};

} // namespace quenoria
