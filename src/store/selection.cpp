#include "store/prospect_store.h"

namespace quenoria {

bool ProspectStore::isSelectedForSending(const Prospect &prospect) const
{
    return m_sendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || !isReachable(Channel::sms, prospect)))
        return;
    select(Channel::sms, selected, prospect.id);
}

void ProspectStore::clearSendSelection() { clearSelection(Channel::sms); }

bool ProspectStore::isSelectedForEmailSending(const Prospect &prospect) const
{
    return m_emailSendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForEmailSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || !isReachable(Channel::email, prospect)))
        return;
    select(Channel::email, selected, prospect.id);
}

void ProspectStore::clearEmailSendSelection() { clearSelection(Channel::email); }

bool ProspectStore::isReachable(Channel channel, const Prospect &prospect) const
{
    const bool hasReach = channel == Channel::sms ? !prospect.phone.isEmpty()
                                                  : !prospect.email.value_or(QString()).isEmpty();
    return hasReach && !isServedByTwin(channel, prospect);
}

IdSet &ProspectStore::selection(Channel channel)
{
    return channel == Channel::sms ? m_sendSelection : m_emailSendSelection;
}

void ProspectStore::select(Channel channel, bool selected, const QString &id)
{
    if (selected)
        selection(channel).insert(id);
    else
        selection(channel).erase(id);
    announceSelection(channel, {id});
}

void ProspectStore::clearSelection(Channel channel)
{
    announceSelection(channel, std::exchange(selection(channel), {}));
}

} // namespace quenoria
