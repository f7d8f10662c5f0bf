#include "store/defaults.h"
#include "store/prospect_store.h"

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
    const auto *found = effectiveTemplate(m_messageTemplates,
                                          m_messageAssignments.find(prospect.id), defaultMessageID);
    return found ? *found : defaultMessage();
}

void ProspectStore::assignMessage(const QString &id, const Prospect &prospect)
{
    assign(m_messageAssignments, prospect.id, id, defaultMessageID);
    publish(Collection::messageAssignments, {prospect.id});
}

QString ProspectStore::createMessage(const QString &title, const QString &body)
{
    QString id = freshID();
    m_messageTemplates.append(MessageTemplate{id, title, body});
    publish(Collection::messageTemplates);
    return id;
}

void ProspectStore::updateMessage(const QString &id, const QString &title, const QString &body)
{
    const MessageTemplate *found = findTemplate(m_messageTemplates, id);
    if (!found)
        return;
    MessageTemplate changed = *found;
    changed.title = title;
    replaceTemplate(m_messageTemplates, changed);
    publish(Collection::messageTemplates);
    changed.body = body;
    replaceTemplate(m_messageTemplates, changed);
    publish(Collection::messageTemplates);
}

void ProspectStore::deleteMessage(const QString &templateId)
{
    const QString id = templateId; // it may be the template's own
    if (id == defaultMessageID)
        return;
    m_messageTemplates.removeIf([&id](const MessageTemplate &entry) { return entry.id == id; });
    publish(Collection::messageTemplates);
    publish(Collection::messageAssignments, unassign(m_messageAssignments, id));
}

QString ProspectStore::assignedEmailTemplateID(const Prospect &prospect) const
{
    return assignedEmailTemplate(prospect).id;
}

EmailTemplate ProspectStore::assignedEmailTemplate(const Prospect &prospect) const
{
    const auto *found = effectiveTemplate(m_emailTemplates, m_emailAssignments.find(prospect.id),
                                          defaultEmailTemplateID);
    return found ? *found : defaultEmailTemplate();
}

void ProspectStore::assignEmailTemplate(const QString &id, const Prospect &prospect)
{
    assign(m_emailAssignments, prospect.id, id, defaultEmailTemplateID);
    publish(Collection::emailAssignments, {prospect.id});
}

QString ProspectStore::createEmailTemplate(const QString &title, const QString &subject,
                                           const QString &body)
{
    QString id = freshID();
    m_emailTemplates.append(EmailTemplate{id, title, subject, body});
    publish(Collection::emailTemplates);
    return id;
}

void ProspectStore::updateEmailTemplate(const QString &id, const QString &title,
                                        const QString &subject, const QString &body)
{
    const EmailTemplate *found = findTemplate(m_emailTemplates, id);
    if (!found)
        return;
    EmailTemplate changed = *found;
    changed.title = title;
    replaceTemplate(m_emailTemplates, changed);
    publish(Collection::emailTemplates);
    changed.subject = subject;
    replaceTemplate(m_emailTemplates, changed);
    publish(Collection::emailTemplates);
    changed.body = body;
    replaceTemplate(m_emailTemplates, changed);
    publish(Collection::emailTemplates);
}

void ProspectStore::deleteEmailTemplate(const QString &templateId)
{
    const QString id = templateId; // it may be the template's own
    if (id == defaultEmailTemplateID)
        return;
    m_emailTemplates.removeIf([&id](const EmailTemplate &entry) { return entry.id == id; });
    publish(Collection::emailTemplates);
    publish(Collection::emailAssignments, unassign(m_emailAssignments, id));
}

} // namespace quenoria
