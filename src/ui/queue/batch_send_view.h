#pragma once

#include "ui/queue/queue_sheet.h"

namespace quenoria {

/// The queue of SMS.
class BatchSendView : public QueueSheet {
public:
    BatchSendView(SendDesk &desk, Switches &switches, const Platform &platform,
                  QWidget *parent = nullptr)
        : QueueSheet(smsChannel(), desk, switches, platform, parent)
    {
    }
};

/// The queue of e-mails.
class BatchEmailSendView : public QueueSheet {
public:
    BatchEmailSendView(SendDesk &desk, Switches &switches, const Platform &platform,
                       QWidget *parent = nullptr)
        : QueueSheet(emailChannel(), desk, switches, platform, parent)
    {
    }
};

} // namespace quenoria
