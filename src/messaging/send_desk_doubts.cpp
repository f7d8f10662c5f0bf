#include "messaging/send_desk.h"
#include "messaging/send_intents.h"
#include "store/channel_records.h"

#include <algorithm>

namespace quenoria {

bool SendDesk::raiseDoubt(Channel channel, const QString &contactId)
{
    for (const SendIntent &doubt : doubts()) {
        if (doubt.contact == contactId && channelOf(doubt) == channel) {
            Q_EMIT doubtRaised(doubt);
            return true;
        }
    }
    return false;
}

void SendDesk::answer(const SendIntent &doubt, DoubtAnswer answer)
{
    const Channel channel = channelOf(doubt);
    if (answer == DoubtAnswer::left)
        m_store.recordSent(channel, contactOf(doubt), doubt.instant);
    if (answer == DoubtAnswer::left && unsaved(channel))
        m_unsaved.push_back(doubt);
    else if (answer != DoubtAnswer::later)
        m_intents.remove(doubt);
    if (answer == DoubtAnswer::left)
        m_stopReplies.readAgain(); // what came since the message is newer than a send now
    Q_EMIT doubtAnswered(channel, doubt.contact, answer);
}

Refusal SendDesk::unsaved(Channel channel) const
{
    for (const Collection collection : recordsOf(channel)) {
        const auto found = m_store.unsaved().find(collection);
        if (found != m_store.unsaved().end())
            return found->second;
    }
    return {};
}

/// What could not be recorded on the disk at first may be there by now.
void SendDesk::forgetSaved()
{
    std::erase_if(m_unsaved, [this](const SendIntent &intent) {
        const bool isSaved = !unsaved(channelOf(intent));
        if (isSaved)
            m_intents.remove(intent);
        return isSaved;
    });
}

/// A process that died between two files leaves the later one behind: the history comes first,
/// then the quota, then the intent goes.
void SendDesk::reconcile()
{
    const std::vector<SendIntent> left = m_intents.intents();
    for (const SendIntent &intent : left) {
        const Channel channel = channelOf(intent);
        const Prospect contact = contactOf(intent);
        const std::vector<Instant> since = historySince(m_store, channel, contact, intent.instant);
        if (since.size() <= intent.known.size())
            continue;
        if (const auto &monthly = channelRecords(channel).monthly)
            (m_store.*monthly->add)(contact, since.back());
        if (unsaved(channel))
            m_unsaved.push_back(intent);
        else
            m_intents.remove(intent);
    }
}

} // namespace quenoria
