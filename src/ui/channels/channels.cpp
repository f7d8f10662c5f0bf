#include "ui/channels/channel_descriptor.h"

#include <algorithm>

namespace quenoria {

std::span<const ChannelDescriptor *const> channels()
{
    static const auto all = [] {
        PerChannel<const ChannelDescriptor *> made;
        std::ranges::transform(describedChannels, made.begin(),
                               [](const auto describe) { return &describe(); });
        return made;
    }();
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
