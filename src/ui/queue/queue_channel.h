#pragma once

#include "model/channel.h"
#include "store/prospect_store.h"

#include <QSize>

namespace quenoria {

class Switches;

/// The lines of the panel that shows one contact and its message.
struct QueuedMessage {
    QString address;
    QString heading; ///< which template, or which subject
    QString body;
};

/// All that tells the SMS queue from the e-mail queue.
struct QueueChannel {
    // Texts, as the sheet shows them.
    QString title;
    QString note;
    QString automaticSwitch;
    QString automaticNote; ///< while the switch is on
    QString prepare;
    QString startAutomatic; ///< the primary button while the switch is on
    QString confirm;
    QString preparedNote;
    QString finishedNote;
    QString errorSymbol;
    QString noun; ///< "SMS", as in "prochain SMS"
    QSize size;
    bool hasQuota;

    Channel channel;

    // The channel's switch, selection and message.
    bool (Switches::*isAutomatic)() const;
    void (Switches::*setAutomatic)(bool);
    bool (*isQueued)(const ProspectStore &, const Prospect &); ///< selected, with an address
    QString (*recipient)(const Prospect &); ///< the same for all who share a number or an address
    void (ProspectStore::*select)(bool, const Prospect &);
    QueuedMessage (*message)(const ProspectStore &, const Prospect &);
};

[[nodiscard]] const QueueChannel &smsChannel();
[[nodiscard]] const QueueChannel &emailChannel();

} // namespace quenoria
