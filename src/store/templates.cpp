#include "store/defaults.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

#include <QUuid>

namespace quenoria {

namespace {

template <typename Template>
const Template *findTemplate(const Sequence<Template> &templates, const QString &id)
{
    return templates.find([&id](const Template &entry) { return entry.id == id; });
}

template <typename Template>
void replaceTemplate(Sequence<Template> &templates, const Template &changed)
{
    templates.replaceFirst([&changed](const Template &entry) { return entry.id == changed.id; },
                           changed);
}

/// What a contact's assignment stands for: the default template when the contact has none, or
/// when its template no longer exists; null when there is no default either.
template <typename Template>
const Template *effectiveTemplate(const Sequence<Template> &templates, const QString *assigned,
                                  const QString &defaultID)
{
    const Template *found = assigned ? findTemplate(templates, *assigned) : nullptr;
    return found ? found : findTemplate(templates, defaultID);
}

/// A contact on the default template has no entry.
void assign(Dictionary<QString> &assignments, const QString &contactId, const QString &templateId,
            const QString &defaultID)
{
    if (templateId == defaultID)
        assignments.remove(contactId);
    else
        assignments.set(contactId, templateId);
}

/// Takes the template from those it is assigned to, and tells who they are.
IdSet unassign(Dictionary<QString> &assignments, const QString &templateId)
{
    IdSet contacts;
    assignments.forEach([&](const QString &contact, const QString &assigned) {
        if (assigned == templateId)
            contacts.insert(contact);
    });
    for (const QString &contact : contacts)
        assignments.remove(contact);
    return contacts;
}

QString freshID() { return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(); }

} // namespace

QString ProspectStore::assignedMessageID(const Prospect &prospect) const
{
    return assignedMessage(prospect).id;
}

MessageTemplate ProspectStore::assignedMessage(const Prospect &prospect) const
{
    const auto *found = effectiveTemplate(
        m_state->messageTemplates, m_state->messageAssignments.find(prospect.id), defaultMessageID);
    return found ? *found : defaultMessage();
}

void ProspectStore::assignMessage(const QString &id, const Prospect &prospect)
{
    assign(m_state->messageAssignments, prospect.id, id, defaultMessageID);
    m_state->publish(Collection::messageAssignments, {prospect.id});
}

QString ProspectStore::createMessage(const QString &title, const QString &body)
{
    QString id = freshID();
    m_state->messageTemplates.append(MessageTemplate{id, title, body});
    m_state->publish(Collection::messageTemplates);
    return id;
}

void ProspectStore::updateMessage(const QString &id, const QString &title, const QString &body)
{
    const MessageTemplate *found = findTemplate(m_state->messageTemplates, id);
    if (!found)
        return;
    MessageTemplate changed = *found;
    changed.title = title;
    replaceTemplate(m_state->messageTemplates, changed);
    m_state->publish(Collection::messageTemplates);
    changed.body = body;
    replaceTemplate(m_state->messageTemplates, changed);
    m_state->publish(Collection::messageTemplates);
}

void ProspectStore::deleteMessage(const QString &templateId)
{
    const QString id = templateId; // it may be the template's own
    if (id == defaultMessageID)
        return;
    m_state->messageTemplates.removeIf(
        [&id](const MessageTemplate &entry) { return entry.id == id; });
    m_state->publish(Collection::messageTemplates);
    m_state->publish(Collection::messageAssignments, unassign(m_state->messageAssignments, id));
}

QString ProspectStore::assignedEmailTemplateID(const Prospect &prospect) const
{
    return assignedEmailTemplate(prospect).id;
}

EmailTemplate ProspectStore::assignedEmailTemplate(const Prospect &prospect) const
{
    const auto *found =
        effectiveTemplate(m_state->emailTemplates, m_state->emailAssignments.find(prospect.id),
                          defaultEmailTemplateID);
    return found ? *found : defaultEmailTemplate();
}

void ProspectStore::assignEmailTemplate(const QString &id, const Prospect &prospect)
{
    assign(m_state->emailAssignments, prospect.id, id, defaultEmailTemplateID);
    m_state->publish(Collection::emailAssignments, {prospect.id});
}

QString ProspectStore::createEmailTemplate(const QString &title, const QString &subject,
                                           const QString &body)
{
    QString id = freshID();
    m_state->emailTemplates.append(EmailTemplate{id, title, subject, body});
    m_state->publish(Collection::emailTemplates);
    return id;
}

void ProspectStore::updateEmailTemplate(const QString &id, const QString &title,
                                        const QString &subject, const QString &body)
{
    const EmailTemplate *found = findTemplate(m_state->emailTemplates, id);
    if (!found)
        return;
    EmailTemplate changed = *found;
    changed.title = title;
    replaceTemplate(m_state->emailTemplates, changed);
    m_state->publish(Collection::emailTemplates);
    changed.subject = subject;
    replaceTemplate(m_state->emailTemplates, changed);
    m_state->publish(Collection::emailTemplates);
    changed.body = body;
    replaceTemplate(m_state->emailTemplates, changed);
    m_state->publish(Collection::emailTemplates);
}

void ProspectStore::deleteEmailTemplate(const QString &templateId)
{
    const QString id = templateId; // it may be the template's own
    if (id == defaultEmailTemplateID)
        return;
    m_state->emailTemplates.removeIf([&id](const EmailTemplate &entry) { return entry.id == id; });
    m_state->publish(Collection::emailTemplates);
    m_state->publish(Collection::emailAssignments, unassign(m_state->emailAssignments, id));
}

} // namespace quenoria
