#include "store/channel_records.h"
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

/// Calls it with each text of a template and its like in the other.
template <typename Template, typename Other, typename Use>
void forEachText(Template &each, Other &other, Use use)
{
    use(each.title, other.title);
    if constexpr (requires { each.subject, other.subject; })
        use(each.subject, other.subject);
    use(each.body, other.body);
}

/// Takes the template's texts over, one by one, and tells of each.
template <typename Template, typename Publish>
void takeTexts(Sequence<Template> &templates, const EmailTemplate &texts, const Publish &publish)
{
    const Template *found = findTemplate(templates, texts.id);
    if (!found)
        return;
    Template changed = *found;
    forEachText(changed, texts, [&](QString &text, const QString &typed) {
        text = typed;
        templates.replaceFirst([&changed](const Template &entry) { return entry.id == changed.id; },
                               changed);
        publish();
    });
}

/// The same template as another channel keeps it.
template <typename To, typename From>
To as(const From &from)
{
    To to;
    to.id = from.id;
    forEachText(to, from, [](QString &text, const QString &given) { text = given; });
    return to;
}

/// What a contact's assignment stands for: the default template when the contact has none, or
/// when its template no longer exists; null when there is no default either.
template <Channel channel>
const auto *effectiveTemplate(const ChannelData<channel> &data, const Prospect &prospect,
                              const QString &defaultID)
{
    const QString *assigned = data.assignments.find(prospect.id);
    const auto *found = assigned ? findTemplate(data.templates, *assigned) : nullptr;
    return found ? found : findTemplate(data.templates, defaultID);
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

/// The default template of each channel comes back in front when it is missing.
void StoreState::completeTemplates()
{
    for (const Channel channel : allChannels) {
        const ChannelRecords &records = channelRecords(channel);
        channels.on(channel, [&](auto &data) {
            if (findTemplate(data.templates, records.defaultTemplate.id))
                return;
            using Data = std::remove_cvref_t<decltype(data)>;
            data.templates.prepend(as<typename Data::Template>(records.defaultTemplate));
            publish(records.templates);
        });
    }
}

std::vector<EmailTemplate> ProspectStore::templates(Channel channel) const
{
    return m_state.contacts().channels.on(channel, [](const auto &data) {
        std::vector<EmailTemplate> templates;
        data.templates.forEach(
            [&templates](const auto &entry) { templates.push_back(as<EmailTemplate>(entry)); });
        return templates;
    });
}

EmailTemplate ProspectStore::assignedTemplate(Channel channel, const Prospect &prospect) const
{
    return m_state.contacts().channels.on(channel, [&](const auto &data) {
        const EmailTemplate &standard = channelRecords(channel).defaultTemplate;
        const auto *found = effectiveTemplate(data, prospect, standard.id);
        return found ? as<EmailTemplate>(*found) : standard;
    });
}

/// A contact on the default template has no entry.
void ProspectStore::assignTemplate(Channel channel, const QString &id, const Prospect &prospect)
{
    m_state->channels.on(channel, [&](auto &data) {
        if (id == channelRecords(channel).defaultTemplate.id)
            data.assignments.remove(prospect.id);
        else
            data.assignments.set(prospect.id, id);
    });
    m_state->publish(channelRecords(channel).assignments, {prospect.id});
}

QString ProspectStore::createTemplate(Channel channel, EmailTemplate texts)
{
    texts.id = freshID();
    m_state->channels.on(channel, [&texts](auto &data) {
        using Data = std::remove_cvref_t<decltype(data)>;
        data.templates.append(as<typename Data::Template>(texts));
    });
    m_state->publish(channelRecords(channel).templates);
    return texts.id;
}

void ProspectStore::updateTemplate(Channel channel, const EmailTemplate &texts)
{
    const auto publish = [&] { m_state->publish(channelRecords(channel).templates); };
    m_state->channels.on(channel, [&](auto &data) { takeTexts(data.templates, texts, publish); });
}

void ProspectStore::deleteTemplate(Channel channel, const QString &templateId)
{
    const QString id = templateId; // it may be the template's own
    if (id == channelRecords(channel).defaultTemplate.id)
        return;
    const ChannelRecords &records = channelRecords(channel);
    m_state->channels.on(channel, [&](auto &data) {
        data.templates.removeIf([&id](const auto &entry) { return entry.id == id; });
        m_state->publish(records.templates);
        m_state->publish(records.assignments, unassign(data.assignments, id));
    });
}

QString ProspectStore::assignedMessageID(const Prospect &prospect) const
{
    return assignedMessage(prospect).id;
}

MessageTemplate ProspectStore::assignedMessage(const Prospect &prospect) const
{
    return as<MessageTemplate>(assignedTemplate(Channel::sms, prospect));
}

void ProspectStore::assignMessage(const QString &id, const Prospect &prospect)
{
    assignTemplate(Channel::sms, id, prospect);
}

QString ProspectStore::createMessage(const QString &title, const QString &body)
{
    return createTemplate(Channel::sms, {{}, title, {}, body});
}

void ProspectStore::updateMessage(const QString &id, const QString &title, const QString &body)
{
    updateTemplate(Channel::sms, {id, title, {}, body});
}

void ProspectStore::deleteMessage(const QString &templateId)
{
    deleteTemplate(Channel::sms, templateId);
}

QString ProspectStore::assignedEmailTemplateID(const Prospect &prospect) const
{
    return assignedEmailTemplate(prospect).id;
}

EmailTemplate ProspectStore::assignedEmailTemplate(const Prospect &prospect) const
{
    return assignedTemplate(Channel::email, prospect);
}

void ProspectStore::assignEmailTemplate(const QString &id, const Prospect &prospect)
{
    assignTemplate(Channel::email, id, prospect);
}

QString ProspectStore::createEmailTemplate(const QString &title, const QString &subject,
                                           const QString &body)
{
    return createTemplate(Channel::email, {{}, title, subject, body});
}

void ProspectStore::updateEmailTemplate(const QString &id, const QString &title,
                                        const QString &subject, const QString &body)
{
    updateTemplate(Channel::email, {id, title, subject, body});
}

void ProspectStore::deleteEmailTemplate(const QString &templateId)
{
    deleteTemplate(Channel::email, templateId);
}

} // namespace quenoria
