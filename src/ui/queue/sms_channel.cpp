#include "messaging/messages_script.h"
#include "ui/kit/switches.h"
#include "ui/queue/queue_channel.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

bool isQueued(const ProspectStore &store, const Prospect &prospect)
{
    return store.isSelectedForSending(prospect);
}

QString recipient(const Prospect &prospect) { return messagingHandle(prospect.phone); }

QueuedMessage message(const ProspectStore &store, const Prospect &prospect)
{
    const MessageTemplate assigned = store.assignedMessage(prospect);
    return {prospect.phone, u"Message : "_s + assigned.title, assigned.body};
}

} // namespace

const QueueChannel &smsChannel()
{
    static const QueueChannel channel{
        .title = u"File d’envoi SMS"_s,
        .note = u"Chaque SMS doit être préparé et envoyé individuellement dans Messages."_s,
        .automaticSwitch = u"Automatiser envoi SMS"_s,
        .automaticNote = u"Envoi automatique direct : priorité RCS, puis SMS/MMS si RCS "
                         "indisponible ; 11 secondes minimum séparent deux destinataires."_s,
        .prepare = u"Préparer ce SMS"_s,
        .startAutomatic = u"Préparer ce SMS"_s,
        .confirm = u"&Envoyé, suivant"_s,
        .preparedNote = u"Le SMS a été préparé dans Messages. Envoyez-le, puis cliquez sur "
                        "« Envoyé, suivant »."_s,
        .finishedNote = u"Les SMS confirmés sont cochés avec leur nouvelle date et heure."_s,
        .errorSymbol = u"hand.raised.circle.fill"_s,
        .noun = u"SMS"_s,
        .size = {760, 680},
        .hasQuota = true,
        .channel = Channel::sms,
        .isAutomatic = &Switches::autoValidateSMS,
        .setAutomatic = &Switches::setAutoValidateSMS,
        .isQueued = isQueued,
        .recipient = recipient,
        .select = &ProspectStore::setSelectedForSending,
        .message = message,
    };
    return channel;
}

} // namespace quenoria
