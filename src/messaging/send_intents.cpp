#include "messaging/send_intents.h"

#include "store/collection.h"
#include "store/prospect_store.h"

using namespace Qt::StringLiterals;

namespace quenoria {

QString nameOf(Channel channel) { return channel == Channel::sms ? u"sms"_s : u"email"_s; }

Channel channelOf(const SendIntent &intent)
{
    return intent.channel == nameOf(Channel::sms) ? Channel::sms : Channel::email;
}

Prospect contactOf(const SendIntent &intent)
{
    Prospect contact;
    contact.id = intent.contact;
    contact.label = intent.label;
    if (channelOf(intent) == Channel::sms)
        contact.phone = intent.recipient;
    else
        contact.email = intent.recipient;
    return contact;
}

std::vector<Instant> historySince(const ProspectStore &store, Channel channel,
                                  const Prospect &contact, Instant instant)
{
    std::vector<Instant> history =
        channel == Channel::sms ? store.sendHistory(contact) : store.emailHistory(contact);
    std::erase_if(history, [instant](Instant date) { return date < instant; });
    return history;
}

std::vector<Collection> recordsOf(Channel channel)
{
    if (channel == Channel::sms)
        return {Collection::statuses, Collection::smsMonthlyRecipientsByMonth};
    return {Collection::emailStatuses};
}

} // namespace quenoria
