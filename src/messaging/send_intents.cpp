#include "messaging/send_intents.h"

#include "store/channel_records.h"

#include <algorithm>

namespace quenoria {

QString nameOf(Channel channel) { return channelRecords(channel).name; }

/// One that this edition does not know is asked about as an e-mail.
Channel channelOf(const SendIntent &intent)
{
    const auto found = std::ranges::find(allChannels, intent.channel, nameOf);
    return found == allChannels.end() ? Channel::email : *found;
}

Prospect contactOf(const SendIntent &intent)
{
    Prospect contact;
    contact.id = intent.contact;
    contact.label = intent.label;
    channelRecords(channelOf(intent)).reach.readdress(contact, intent.recipient);
    return contact;
}

std::vector<Instant> historySince(const ProspectStore &store, Channel channel,
                                  const Prospect &contact, Instant instant)
{
    const auto sends = store.sends(channel, contact);
    std::vector<Instant> history(sends.begin(), sends.end());
    std::erase_if(history, [instant](Instant date) { return date < instant; });
    return history;
}

std::vector<Collection> recordsOf(Channel channel)
{
    const ChannelRecords &records = channelRecords(channel);
    std::vector<Collection> files{records.statuses};
    if (records.monthly)
        files.push_back(records.monthly->collection);
    return files;
}

} // namespace quenoria
