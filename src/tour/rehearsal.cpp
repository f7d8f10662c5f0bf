#include "tour/rehearsal.h"

#include "messaging/send_desk.h"
#include "store/channel_records.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/kit/switches.h"
#include "ui/window/content_view.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString everything = u"tout"_s;
const QString text = u"Bonjour,\n\nCeci est une répétition."_s; ///< without blanks to ask about

std::vector<Prospect> notSentTo(const ProspectStore &store, Channel channel)
{
    std::vector<Prospect> contacts = store.allProspects();
    std::erase_if(contacts,
                  [&](const Prospect &contact) { return !store.sends(channel, contact).empty(); });
    return contacts;
}

void orderAll(SendDesk &desk, Channel channel, const std::vector<Prospect> &contacts)
{
    for (const Prospect &contact : contacts)
        desk.order(channel, contact.id, false).then([](const SendOutcome &) {});
}

} // namespace

const QStringList &rehearsalNames()
{
    static const QStringList names = [] {
        QStringList all;
        for (const ChannelDescriptor *channel : channels()) {
            if (channel->automatic)
                all << channelRecords(channel->channel).name;
        }
        return all << everything;
    }();
    return names;
}

void rehearse(ContentView &window, SendDesk &desk, Switches &switches, const QString &name)
{
    ProspectStore &store = desk.store();
    Channel shown = allChannels.front();
    for (const ChannelDescriptor *channel : channels()) {
        if (!channel->automatic)
            continue;
        const Channel which = channel->channel;
        EmailTemplate standard = channelRecords(which).defaultTemplate;
        standard.subject = u"Répétition"_s;
        standard.body = text;
        store.updateTemplate(which, standard);
        switches.set(channel->automatic->turnedOn.which, true);
        if (name == channelRecords(which).name)
            shown = which;
        const std::vector<Prospect> contacts = notSentTo(store, which);
        for (const Prospect &contact : contacts)
            store.select(which, true, contact);
        if (name == everything && which != shown)
            orderAll(desk, which, contacts);
    }
    window.openQueue(shown);
}

} // namespace quenoria
