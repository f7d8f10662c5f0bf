#include "messaging/mail_run.h"
#include "store/prospect_store.h"
#include "ui/channels/channel_descriptor.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

QString recipient(const Prospect &prospect)
{
    return prospect.email.value_or(QString()).trimmed().toLower();
}

QueuedMessage message(const ProspectStore &store, const Prospect &prospect)
{
    const EmailTemplate assigned = store.assignedEmailTemplate(prospect);
    return {prospect.email.value_or(QString()), u"Objet : "_s + assigned.subject, assigned.body};
}

bool isQueued(const ProspectStore &store, const Prospect &prospect)
{
    return store.isSelectedForEmailSending(prospect) && prospect.email &&
           !prospect.email->isEmpty();
}

std::optional<Instant> nextTurn(SendDesk &desk, Instant /*now*/)
{
    return desk.mailTurn().pausedUntil();
}

QString notice(SendDesk &desk) { return desk.mailTurn().notice(); }

std::optional<Instant> lastTurn(SendDesk &desk, Preferences &preferences, Instant now, int contacts)
{
    if (!desk.mailTurn().isNeeded())
        return std::nullopt;
    return lastMailTurn(emailsSent(desk.store()), MailSettings(preferences).pace(), now, contacts);
}

Refusal check(const TemplateDraft &draft)
{
    if (draft.title.isEmpty() || draft.subject.isEmpty() || draft.body.isEmpty())
        return u"Saisissez le titre, l’objet et le contenu."_s;
    return {};
}

AutomaticSending automatic()
{
    return {.turnedOn = {Switch::automaticEmail, u"Automatiser envoi e-mail"_s,
                         u"Envoie automatiquement les e-mails dans Apple Mail, puis enregistre le "
                         "suivi."_s},
            .note = u"Envoi entièrement automatique : Apple Mail envoie l’e-mail, "
                    "l’application enregistre le suivi et passe au contact suivant."_s,
            .start = u"Envoyer automatiquement"_s};
}

ChannelQueue queue()
{
    return {.role = u"BatchEmailSendView"_s,
            .title = u"File d’envoi des e-mails"_s,
            .note = u"Chaque e-mail est préparé dans l’application de messagerie définie par "
                    "défaut sur votre Mac."_s,
            .prepare = u"Préparer cet e-mail"_s,
            .confirm = u"E-mail envoyé, &suivant"_s,
            .preparedNote = u"L’e-mail a été préparé. Envoyez-le, puis cliquez sur "
                            "« E-mail envoyé, suivant »."_s,
            .finishedNote = u"Les e-mails confirmés sont cochés comme envoyés."_s,
            .errorSymbol = u"exclamationmark.triangle.fill"_s,
            .size = {780, 680},
            .holds = isQueued,
            .recipient = recipient,
            .message = message};
}

ChannelTemplates templates()
{
    return {.role = u"EmailMessageManagerView"_s,
            .newID = u"__nouveau_mail__"_s,
            .check = check,
            .size = {820, 680},
            .heading = u"Gérer les modèles d’e-mails"_s,
            .note = u"Créez un titre interne, un objet et un contenu, puis choisissez le modèle "
                    "dans la liste des contacts."_s,
            .newEntry = u"Nouvel e-mail…"_s,
            .titleField = u"Titre interne du modèle"_s,
            .subjectField = u"Objet de l’e-mail"_s,
            .bodyLabel = u"Contenu de l’e-mail"_s,
            .saveButton = u"Enregistrer le modèle"_s,
            .saved = u"Modèle enregistré."_s,
            .savedTint = Tint::positive};
}

} // namespace

const ChannelDescriptor &emailChannel()
{
    static const ChannelDescriptor channel{
        .channel = Channel::email,
        .noun = u"e-mail"_s,
        .plural = u"E-mails"_s,
        .impossible = u"E-mail impossible"_s,
        // The pause between two contacts, and what a carrier takes.
        .pace = {.expected = 2s, .nextTurn = nextTurn, .notice = notice, .lastTurn = lastTurn},
        .automatic = automatic(),
        .allowance = {},
        .queue = queue(),
        .templates = templates(),
        .columns = {.selection = u"Envoyer mail",
                    .selectionWidth = 90,
                    .unreachable = u"sans adresse",
                    .sent = u"Mail envoyé",
                    .sentWidth = 85,
                    .message = u"Message e-mail",
                    .messageWidth = 180,
                    .prepare = u"Préparer mail"_s,
                    .send = u"Envoyer mail"_s},
        .commands = {.openQueue = {u"Préparer les e-mails", u"", u"Ctrl+Shift+E"},
                     .sendQueue = u"Envoyer les e-mails",
                     .tickShown = {u"Cocher les contacts affichés pour les e-mails"},
                     .untickShown = {u"Décocher les contacts affichés pour les e-mails"},
                     .manageTemplates = {u"Gérer les e-mails", u"envelope.fill"}},
    };
    return channel;
}

} // namespace quenoria
