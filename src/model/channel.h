#pragma once

#include <array>

namespace quenoria {

/// The ways to reach a contact.
enum class Channel { sms, email };

/// All of them, in the order in which they are shown; each stands at its own number.
inline constexpr std::array allChannels{Channel::sms, Channel::email};

/// One for each, at the channel's number.
template <typename Value>
using PerChannel = std::array<Value, allChannels.size()>;

} // namespace quenoria
