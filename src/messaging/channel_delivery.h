#pragma once

#include "model/channel.h"
#include "platform/platform.h"
#include "store/prospect_store.h"

#include <QCoroTask>

namespace quenoria {

/// A message that the desk sends.
struct Sending {
    Prospect contact;
    bool freeProEnabled = false;
    std::stop_token stop;
    HandOverGate gate;
};

/// How the desk sends on a channel.
struct ChannelDelivery {
    /// Puts the message in front of the user.
    Refusal (*prepare)(ProspectStore &store, const Platform &platform, const Prospect &contact,
                       bool freeProEnabled);
    /// Without it messages are only prepared.
    QCoro::Task<SendOutcome> (*send)(ProspectStore &store, Sending sending) = nullptr;
    bool oneByOne = false;         ///< orders wait for each other
    bool waitsForMailTurn = false; ///< while the user's own mailbox sends
};

[[nodiscard]] ChannelDelivery smsDelivery();
[[nodiscard]] ChannelDelivery emailDelivery();

[[nodiscard]] inline ChannelDelivery deliveryOn(Channel channel)
{
    constexpr std::array all{smsDelivery, emailDelivery};
    static_assert(all.size() == allChannels.size());
    return all[std::size_t(channel)]();
}

} // namespace quenoria
