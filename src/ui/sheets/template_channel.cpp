#include "ui/sheets/template_channel.h"

#include "model/sequence.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

std::vector<EmailTemplate> allMessages(const ProspectStore &store)
{
    std::vector<EmailTemplate> templates;
    for (const MessageTemplate &message : store.messageTemplates().values())
        templates.push_back({message.id, message.title, {}, message.body});
    return templates;
}

std::vector<EmailTemplate> allEmails(const ProspectStore &store)
{
    return store.emailTemplates().values();
}

QString createMessage(ProspectStore &store, const TemplateDraft &draft)
{
    return store.createMessage(draft.title, draft.body);
}

QString createEmail(ProspectStore &store, const TemplateDraft &draft)
{
    return store.createEmailTemplate(draft.title, draft.subject, draft.body);
}

void updateMessage(ProspectStore &store, const QString &id, const TemplateDraft &draft)
{
    store.updateMessage(id, draft.title, draft.body);
}

void updateEmail(ProspectStore &store, const QString &id, const TemplateDraft &draft)
{
    store.updateEmailTemplate(id, draft.title, draft.subject, draft.body);
}

void removeMessage(ProspectStore &store, const QString &id) { store.deleteMessage(id); }

void removeEmail(ProspectStore &store, const QString &id) { store.deleteEmailTemplate(id); }

Refusal checkMessage(const TemplateDraft &draft)
{
    if (draft.title.isEmpty())
        return u"Saisissez un titre."_s;
    if (draft.body.isEmpty())
        return u"Saisissez le contenu du message."_s;
    return {};
}

Refusal checkEmail(const TemplateDraft &draft)
{
    if (draft.title.isEmpty() || draft.subject.isEmpty() || draft.body.isEmpty())
        return u"Saisissez le titre, l’objet et le contenu."_s;
    return {};
}

} // namespace

const TemplateChannel &smsTemplateChannel()
{
    static const TemplateChannel channel{
        .defaultID = ProspectStore::defaultMessageID,
        .newID = u"__nouveau_message__"_s,
        .channel = Channel::sms,
        .all = allMessages,
        .create = createMessage,
        .update = updateMessage,
        .remove = removeMessage,
        .check = checkMessage,
        .size = {780, 640},
        .heading = u"Gérer les modèles de messages"_s,
        .note = u"Créez un titre et un texte, puis associez le modèle depuis la colonne Message."_s,
        .newEntry = u"Nouveau message…"_s,
        .titleField = u"Titre du message"_s,
        .subjectField = {},
        .bodyLabel = u"Contenu du SMS"_s,
        .saveButton = u"Enregistrer le message"_s,
        .saved = u"Message enregistré."_s,
        .savedTint = Tint::negative,
        .countsCharacters = true,
    };
    return channel;
}

const TemplateChannel &emailTemplateChannel()
{
    static const TemplateChannel channel{
        .defaultID = ProspectStore::defaultEmailTemplateID,
        .newID = u"__nouveau_mail__"_s,
        .channel = Channel::email,
        .all = allEmails,
        .create = createEmail,
        .update = updateEmail,
        .remove = removeEmail,
        .check = checkEmail,
        .size = {820, 680},
        .heading = u"Gérer les modèles d’e-mails"_s,
        .note = u"Créez un titre interne, un objet et un contenu, puis choisissez le modèle dans "
                "la liste des contacts."_s,
        .newEntry = u"Nouvel e-mail…"_s,
        .titleField = u"Titre interne du modèle"_s,
        .subjectField = u"Objet de l’e-mail"_s,
        .bodyLabel = u"Contenu de l’e-mail"_s,
        .saveButton = u"Enregistrer le modèle"_s,
        .saved = u"Modèle enregistré."_s,
        .savedTint = Tint::positive,
        .countsCharacters = false,
    };
    return channel;
}

} // namespace quenoria
