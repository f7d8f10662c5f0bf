#include "ui/window/header_texts.h"

#include "messaging/send_desk.h"
#include "ui/channels/channel_descriptor.h"
#include "ui/table/contact_table_model.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString notYetKnown = u"…"_s; ///< as long as the histories are being read

/// "SMS : 12  •  E-mails : 3"
QString countsOf(const ContactList &contacts, bool areKnown)
{
    QStringList counts;
    for (const ChannelDescriptor *channel : channels())
        counts << u"%1 : %2"_s.arg(channel->plural,
                                   areKnown ? QString::number(contacts.sentOn(channel->channel))
                                            : notYetKnown);
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
        const bool isKnown = store.isReady();
        const QString used = isKnown ? QString::number((store.*allowance.used)()) : notYetKnown;
        texts.quota = isLimited
                          ? u"%1 ce mois : %2/%3"_s.arg(channel->plural, used).arg(allowance.limit)
                          : u"%1 : sans limite"_s.arg(channel->plural);
        texts.quotaIsReached = isLimited && isKnown && allowance.isReached(store);
    }
}

} // namespace

HeaderTexts HeaderTexts::of(SendDesk &desk, const Switches &switches,
                            const ContactTableModel &model)
{
    const auto stopReplies = desk.stopReplies().waiting().size();
    HeaderTexts texts{
        .counts = countsOf(model.contacts(), desk.store().isReady()),
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
