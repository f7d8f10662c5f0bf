#include "store/channel_records.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

namespace quenoria {

const IdSet &ProspectStore::selection(Channel channel) const
{
    return m_state.contacts().selection(channel);
}

bool ProspectStore::isSelected(Channel channel, const Prospect &prospect) const
{
    return selection(channel).contains(prospect.id);
}

void ProspectStore::select(Channel channel, bool selected, const Prospect &prospect)
{
    if (selected && (isStopped(prospect) || !isReachable(channel, prospect)))
        return;
    m_state->select(channel, selected, prospect.id);
}

bool ProspectStore::isSelectedForSending(const Prospect &prospect) const
{
    return isSelected(Channel::sms, prospect);
}

void ProspectStore::setSelectedForSending(bool selected, const Prospect &prospect)
{
    select(Channel::sms, selected, prospect);
}

void ProspectStore::clearSendSelection() { m_state->clearSelection(Channel::sms); }

bool ProspectStore::isSelectedForEmailSending(const Prospect &prospect) const
{
    return isSelected(Channel::email, prospect);
}

void ProspectStore::setSelectedForEmailSending(bool selected, const Prospect &prospect)
{
    select(Channel::email, selected, prospect);
}

void ProspectStore::clearEmailSendSelection() { m_state->clearSelection(Channel::email); }

bool ProspectStore::isReachable(Channel channel, const Prospect &prospect) const
{
    return !channelRecords(channel).reach.recipient(prospect).isEmpty() &&
           !isServedByTwin(channel, prospect);
}

IdSet &StoreState::selection(Channel channel)
{
    return channels.on(channel, [](auto &data) -> IdSet & { return data.selection; });
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
