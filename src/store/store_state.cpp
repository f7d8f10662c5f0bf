#include "store/store_state.h"

#include "store/prospect_store.h"

namespace quenoria {

const Dictionary<SendStatus> &ProspectStore::statuses() const
{
    return m_state->channels.of<Channel::sms>().statuses;
}

const Sequence<Prospect> &ProspectStore::customProspects() const
{
    return m_state.contacts().customProspects;
}

const Sequence<MessageTemplate> &ProspectStore::messageTemplates() const
{
    return m_state.contacts().channels.of<Channel::sms>().templates;
}

const Dictionary<QString> &ProspectStore::messageAssignments() const
{
    return m_state.contacts().channels.of<Channel::sms>().assignments;
}

const Dictionary<EmailSendStatus> &ProspectStore::emailStatuses() const
{
    return m_state->channels.of<Channel::email>().statuses;
}

const Sequence<EmailTemplate> &ProspectStore::emailTemplates() const
{
    return m_state.contacts().channels.of<Channel::email>().templates;
}

const Dictionary<QString> &ProspectStore::emailAssignments() const
{
    return m_state.contacts().channels.of<Channel::email>().assignments;
}

const Dictionary<QString> &ProspectStore::emailOverrides() const
{
    return m_state.contacts().emailOverrides;
}

const Dictionary<ContactOverride> &ProspectStore::contactOverrides() const
{
    return m_state.contacts().contactOverrides;
}

const Dictionary<QString> &ProspectStore::attachmentPaths() const
{
    return m_state.contacts().attachmentPaths;
}

const IdSet &ProspectStore::deletedProspectIDs() const
{
    return m_state.contacts().deletedProspectIDs;
}

const Sequence<DepartmentInfo> &ProspectStore::departments() const
{
    return m_state.contacts().departments;
}

const Dictionary<TextSet> &ProspectStore::smsMonthlyRecipientsByMonth() const
{
    return m_state->smsMonthlyRecipientsByMonth;
}

const QString &ProspectStore::testNumber() const { return m_state.contacts().testNumber; }

const IdSet &ProspectStore::sendSelection() const
{
    return m_state.contacts().channels.of<Channel::sms>().selection;
}

const IdSet &ProspectStore::emailSendSelection() const
{
    return m_state.contacts().channels.of<Channel::email>().selection;
}

bool ProspectStore::holds(Collection collection, const QString &id) const
{
    const CollectionDescriptor &row = descriptor(collection);
    return row.holds && row.holds(*m_state, id);
}

const std::vector<Prospect> &ProspectStore::prospects() const
{
    return m_state.contacts().prospects;
}

bool ProspectStore::isReady() const { return m_state.contacts().isReady; }

bool ProspectStore::automaticSMSBusy() const { return m_state.contacts().automaticSMSBusy; }

std::optional<Instant> ProspectStore::lastAutomaticSMSSentAt() const
{
    return m_state.contacts().lastAutomaticSMSSentAt;
}

const std::map<Collection, QString> &ProspectStore::unsaved() const { return m_state->unsaved; }

const QStringList &ProspectStore::filesSetAside() const { return m_state->filesSetAside; }

const DoNotContact &ProspectStore::doNotContact() const { return m_state.contacts().doNotContact; }

Refusal ProspectStore::addToDoNotContact(const IdSet &keys)
{
    return m_state->doNotContact.add(keys);
}

Refusal ProspectStore::rememberErased(const IdSet &keys)
{
    return m_state->doNotContact.addErased(keys);
}

} // namespace quenoria
