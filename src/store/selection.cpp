#include "store/prospect_store.h"
#include "store/store_state.h"

namespace quenoria {

bool ProspectStore::isSelectedForSending(const Prospect &prospect) const
{
    return m_state->sendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || !isReachable(Channel::sms, prospect)))
        return;
    m_state->select(Channel::sms, selected, prospect.id);
}

void ProspectStore::clearSendSelection() { m_state->clearSelection(Channel::sms); }

bool ProspectStore::isSelectedForEmailSending(const Prospect &prospect) const
{
    return m_state->emailSendSelection.contains(prospect.id);
}

void ProspectStore::setSelectedForEmailSending(bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || !isReachable(Channel::email, prospect)))
        return;
    m_state->select(Channel::email, selected, prospect.id);
}

void ProspectStore::clearEmailSendSelection() { m_state->clearSelection(Channel::email); }

bool ProspectStore::isReachable(Channel channel, const Prospect &prospect) const
{
    const bool hasReach = channel == Channel::sms ? !prospect.phone.isEmpty()
                                                  : !prospect.email.value_or(QString()).isEmpty();
    return hasReach && !isServedByTwin(channel, prospect);
}

IdSet &StoreState::selection(Channel channel)
{
    return channel == Channel::sms ? sendSelection : emailSendSelection;
}

void StoreState::select(Channel channel, bool selected, const QString &id)
{
    if (selected)
        selection(channel).insert(id);
    else
        selection(channel).erase(id);
    announceSelection(channel, {id});
}

void StoreState::clearSelection(Channel channel)
{
    announceSelection(channel, std::exchange(selection(channel), {}));
}

} // namespace quenoria
