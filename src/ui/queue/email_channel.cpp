#include "ui/kit/switches.h"
#include "ui/queue/queue_channel.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

bool isQueued(const ProspectStore &store, const Prospect &prospect)
{
    return store.isSelectedForEmailSending(prospect) && prospect.email &&
           !prospect.email->isEmpty();
}

QString recipient(const Prospect &prospect)
{
    return prospect.email.value_or(QString()).trimmed().toLower();
}

QueuedMessage message(const ProspectStore &store, const Prospect &prospect)
{
    const EmailTemplate assigned = store.assignedEmailTemplate(prospect);
    return {prospect.email.value_or(QString()), u"Objet : "_s + assigned.subject, assigned.body};
}

} // namespace

const QueueChannel &emailChannel()
{
    static const QueueChannel channel{
        .title = u"File d’envoi des e-mails"_s,
        .note = u"Chaque e-mail est préparé dans l’application de messagerie définie par défaut "
                "sur votre Mac."_s,
        .automaticSwitch = u"Automatiser envoi e-mail"_s,
        .automaticNote = u"Envoi entièrement automatique : Apple Mail envoie l’e-mail, "
                         "l’application enregistre le suivi et passe au contact suivant."_s,
        .prepare = u"Préparer cet e-mail"_s,
        .startAutomatic = u"Envoyer automatiquement"_s,
        .confirm = u"E-mail envoyé, &suivant"_s,
        .preparedNote = u"L’e-mail a été préparé. Envoyez-le, puis cliquez sur "
                        "« E-mail envoyé, suivant »."_s,
        .finishedNote = u"Les e-mails confirmés sont cochés comme envoyés."_s,
        .errorSymbol = u"exclamationmark.triangle.fill"_s,
        .noun = u"e-mail"_s,
        .size = {780, 680},
        .hasQuota = false,
        .channel = Channel::email,
        .isAutomatic = &Switches::autoValidateEmail,
        .setAutomatic = &Switches::setAutoValidateEmail,
        .isQueued = isQueued,
        .recipient = recipient,
        .select = &ProspectStore::setSelectedForEmailSending,
        .message = message,
    };
    return channel;
}

} // namespace quenoria
