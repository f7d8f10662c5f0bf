#pragma once

#include "model/channel.h"
#include "model/records.h"
#include "store/change.h"

#include <vector>

namespace quenoria {

class ProspectStore;

// What stands in an intent, and beside it in the store.

[[nodiscard]] QString nameOf(Channel channel); ///< as an intent has it
[[nodiscard]] Channel channelOf(const SendIntent &intent);

/// The contact as the message was addressed to it.
[[nodiscard]] Prospect contactOf(const SendIntent &intent);

/// Its sends of that instant or later, oldest first.
[[nodiscard]] std::vector<Instant> historySince(const ProspectStore &store, Channel channel,
                                                const Prospect &contact, Instant instant);

/// The files that a send is recorded in, in their order.
[[nodiscard]] std::vector<Collection> recordsOf(Channel channel);

} // namespace quenoria
