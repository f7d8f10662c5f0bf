#include "ui/channels/channel_descriptor.h"

namespace quenoria {

std::span<const ChannelDescriptor *const> channels()
{
    static const std::array all{&smsChannel(), &emailChannel()};
    static_assert(std::tuple_size_v<decltype(all)> == allChannels.size());
    return all;
}

const ChannelDescriptor &channelDescriptor(Channel channel)
{
    return *channels()[std::size_t(channel)];
}

bool ChannelDescriptor::isAutomatic(const Switches &switches) const
{
    return automatic && switches.isOn(automatic->turnedOn.which);
}

} // namespace quenoria
