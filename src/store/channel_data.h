#pragma once

#include "model/channel.h"
#include "model/collections.h"
#include "model/id_set.h"
#include "model/records.h"

#include <tuple>
#include <type_traits>

namespace quenoria {

/// The records of a channel.
template <Channel>
struct RecordTypes {
    using Status = EmailSendStatus;
    using Template = EmailTemplate;
};

/// Comments and STOPs stand with the sends of the first channel; its templates have no subject.
template <>
struct RecordTypes<Channel::sms> {
    using Status = SendStatus;
    using Template = MessageTemplate;
};

/// What the store holds of a channel.
template <Channel channel>
struct ChannelData {
    using Status = typename RecordTypes<channel>::Status;
    using Template = typename RecordTypes<channel>::Template;

    Dictionary<Status> statuses;
    Sequence<Template> templates;
    Dictionary<QString> assignments; ///< templates, by contact
    IdSet selection;                 ///< in memory only
};

/// One for each channel.
struct AllChannelData {
    template <Channel channel>
    [[nodiscard]] auto &of()
    {
        return std::get<std::size_t(channel)>(all);
    }

    template <Channel channel>
    [[nodiscard]] const auto &of() const
    {
        return std::get<std::size_t(channel)>(all);
    }

    /// Calls it with what is held of the channel.
    template <typename Use>
    decltype(auto) on(Channel channel, Use &&use)
    {
        return find<0>(*this, channel, use);
    }

    template <typename Use>
    decltype(auto) on(Channel channel, Use &&use) const
    {
        return find<0>(*this, channel, use);
    }

private:
    template <std::size_t number, typename Self, typename Use>
    static decltype(auto) find(Self &self, Channel channel, Use &use)
    {
        if constexpr (number + 1 < allChannels.size()) {
            if (channel != allChannels[number])
                return find<number + 1>(self, channel, use);
        }
        return use(std::get<number>(self.all));
    }

    template <std::size_t... number>
    static std::tuple<ChannelData<allChannels[number]>...>
    makeAll(std::index_sequence<number...> numbers);

    decltype(makeAll(std::make_index_sequence<allChannels.size()>())) all;
};

} // namespace quenoria
