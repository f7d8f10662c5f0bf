#include "ui/window/header_texts.h"

#include "messaging/send_desk.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/table/contact_table_model.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// "SMS : 12  •  E-mails : 3"
QString countsOf(const ContactList &contacts)
{
    QStringList counts;
    for (const ChannelDescriptor *channel : channels())
        counts << u"%1 : %2"_s.arg(channel->plural).arg(contacts.sentOn(channel->channel));
    return counts.join(u"  •  "_s);
}

std::map<Channel, QString> queuesOf(const ProspectStore &store, const Switches &switches)
{
    std::map<Channel, QString> queues;
    for (const ChannelDescriptor *channel : channels()) {
        const ChannelCommands &commands = channel->commands;
        const char16_t *text =
            channel->isAutomatic(switches) ? commands.sendQueue : commands.openQueue.text;
        queues[channel->channel] = u"%1 (%2)"_s.arg(QString::fromUtf16(text))
                                       .arg(store.selection(channel->channel).size());
    }
    return queues;
}

/// Of the channel that has an allowance.
void tellAllowance(HeaderTexts &texts, const ProspectStore &store, const Switches &switches)
{
    for (const ChannelDescriptor *channel : channels()) {
        if (!channel->allowance)
            continue;
        const Allowance &allowance = *channel->allowance;
        const bool isLimited = !switches.isOn(allowance.lifted.which);
        texts.quota = isLimited ? u"%1 ce mois : %2/%3"_s.arg(channel->plural)
                                      .arg((store.*allowance.used)())
                                      .arg(allowance.limit)
                                : u"%1 : sans limite"_s.arg(channel->plural);
        texts.quotaIsReached = isLimited && allowance.isReached(store);
    }
}

} // namespace

HeaderTexts HeaderTexts::of(SendDesk &desk, const Switches &switches,
                            const ContactTableModel &model)
{
    const auto stopReplies = desk.stopReplies().waiting().size();
    HeaderTexts texts{
        .counts = countsOf(model.contacts()),
        .queues = queuesOf(desk.store(), switches),
        .deletion = u"Supprimer les contacts cochés (%1)"_s.arg(model.deleteSelection().size()),
        .stopReplies = u"Réponses STOP (%1)"_s.arg(stopReplies),
        .hasStopReplies = stopReplies > 0,
        .quota = {},
    };
    tellAllowance(texts, desk.store(), switches);
    return texts;
}

} // namespace quenoria
