#include "messaging/messages_script.h"
#include "store/prospect_store.h"
#include "ui/channels/channel_descriptor.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

QString recipient(const Prospect &prospect) { return messagingHandle(prospect.phone); }

QueuedMessage message(const ProspectStore &store, const Prospect &prospect)
{
    const MessageTemplate assigned = store.assignedMessage(prospect);
    return {prospect.phone, u"Message : "_s + assigned.title, assigned.body};
}

bool isQueued(const ProspectStore &store, const Prospect &prospect)
{
    return store.isSelectedForSending(prospect);
}

std::optional<Instant> nextTurn(SendDesk &desk, Instant now)
{
    return now + ceil<std::chrono::milliseconds>(desk.store().automaticSMSWait());
}

Refusal check(const TemplateDraft &draft)
{
    if (draft.title.isEmpty())
        return u"Saisissez un titre."_s;
    if (draft.body.isEmpty())
        return u"Saisissez le contenu du message."_s;
    return {};
}

AutomaticSending automatic()
{
    return {.turnedOn = {Switch::automaticSMS, u"Automatiser envoi SMS"_s,
                         u"Prépare et envoie automatiquement les SMS dans Messages, puis "
                         "enregistre le suivi."_s},
            .note = u"Envoi automatique direct : priorité RCS, puis SMS/MMS si RCS "
                    "indisponible ; 11 secondes minimum séparent deux destinataires."_s,
            .start = u"Préparer ce SMS"_s};
}

Allowance allowance()
{
    return {.lifted = {Switch::freePro, u"Forfait Free Pro"_s,
                       u"Coché : pas de limite appliquée par l’application. Décoché : 250 "
                       "destinataires SMS distincts maximum par mois."_s},
            .queueHelp = u"Coché : envois non limités par l’application. Décoché : 250 "
                         "destinataires distincts par mois."_s,
            .limit = ProspectStore::standardSMSMonthlyRecipientLimit,
            .used = &ProspectStore::smsRecipientsSentThisMonth};
}

ChannelQueue queue()
{
    return {.role = u"BatchSendView"_s,
            .title = u"File d’envoi SMS"_s,
            .note = u"Chaque SMS doit être préparé et envoyé individuellement dans Messages."_s,
            .prepare = u"Préparer ce SMS"_s,
            .confirm = u"&Envoyé, suivant"_s,
            .preparedNote = u"Le SMS a été préparé dans Messages. Envoyez-le, puis cliquez sur "
                            "« Envoyé, suivant »."_s,
            .finishedNote = u"Les SMS confirmés sont cochés avec leur nouvelle date et heure."_s,
            .errorSymbol = u"hand.raised.circle.fill"_s,
            .size = {760, 680},
            .holds = isQueued,
            .recipient = recipient,
            .message = message};
}

ChannelTemplates templates()
{
    return {.role = u"MessageManagerView"_s,
            .newID = u"__nouveau_message__"_s,
            .check = check,
            .size = {780, 640},
            .heading = u"Gérer les modèles de messages"_s,
            .note =
                u"Créez un titre et un texte, puis associez le modèle depuis la colonne Message."_s,
            .newEntry = u"Nouveau message…"_s,
            .titleField = u"Titre du message"_s,
            .subjectField = {},
            .bodyLabel = u"Contenu du SMS"_s,
            .saveButton = u"Enregistrer le message"_s,
            .saved = u"Message enregistré."_s,
            .savedTint = Tint::negative};
}

} // namespace

const ChannelDescriptor &smsChannel()
{
    static const ChannelDescriptor channel{
        .channel = Channel::sms,
        .noun = u"SMS"_s,
        .plural = u"SMS"_s,
        .impossible = u"SMS impossible"_s,
        .countsCharacters = true,
        .keepsUsualHours = true,
        // The wait between two recipients, and what a carrier takes.
        .pace = {.expected = 13s, .isMeasured = true, .nextTurn = nextTurn},
        .automatic = automatic(),
        .allowance = allowance(),
        .queue = queue(),
        .templates = templates(),
        .columns = {.selection = u"Envoyer SMS",
                    .selectionWidth = 85,
                    .unreachable = u"sans numéro",
                    .sent = u"SMS envoyé",
                    .sentWidth = 80,
                    .message = u"Message SMS",
                    .messageWidth = 180,
                    .prepare = u"Préparer SMS"_s,
                    .send = u"Préparer SMS"_s},
        .commands = {.openQueue = {u"Préparer les SMS", u"", u"Ctrl+Shift+S"},
                     .sendQueue = u"Préparer les SMS",
                     .tickShown = {u"Cocher les contacts affichés pour les SMS"},
                     .untickShown = {u"Décocher les contacts affichés pour les SMS"},
                     .manageTemplates = {u"Gérer les SMS", u"text.bubble.fill"}},
    };
    return channel;
}

} // namespace quenoria
