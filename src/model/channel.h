#pragma once

namespace quenoria {

/// The two ways to reach a contact.
enum class Channel { sms, email };

} // namespace quenoria
