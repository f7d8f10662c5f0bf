#pragma once

#include "model/channel.h"
#include "store/collection.h"
#include "store/prospect_store.h"

namespace quenoria {

/// What reports, exports and a contact's file call a channel.
struct ChannelWords {
    QString one;        ///< alone in a cell
    QString many;       ///< as a title
    QString inText;     ///< after another word
    QString ofOne;      ///< with its preposition
    QString ofMany;     ///< likewise
    int extraWidth = 0; ///< of a column named after it, in characters
};

/// Where a message goes.
struct ChannelReach {
    QString (*recipient)(const Prospect &contact); ///< as it is kept; empty when there is none
    bool (*isUsable)(const Prospect &contact);     ///< as far as can be told without sending
    void (*readdress)(Prospect &contact, const QString &recipient);
    bool (*isShared)(const Prospect &one, const Prospect &other); ///< one person would get both
};

/// How a channel is counted by the month, if it is.
struct ChannelCount {
    Collection collection;
    void (ProspectStore::*add)(const Prospect &contact, Instant date);
};

/// All that sets a channel apart in what is kept: the store, its reports, exports and backups, and
/// the desk know it by this and by nothing else.
struct ChannelRecords {
    Channel channel;
    QString name; ///< in the file of intents
    Collection statuses, templates, assignments;
    std::optional<ChannelCount> monthly;
    EmailTemplate defaultTemplate; ///< of whoever has none assigned
    bool hasSubject = false;       ///< its templates
    ChannelReach reach;
    ChannelWords words;
};

[[nodiscard]] const ChannelRecords &channelRecords(Channel channel);

} // namespace quenoria
