#pragma once

#include "ui/table/contact_columns.h"

namespace quenoria {

struct ChannelDescriptor;

/// Who is ticked for the next run.
[[nodiscard]] ContactColumn selectionColumn(const ChannelDescriptor &channel);

[[nodiscard]] ContactColumn sentColumn(const ChannelDescriptor &channel);

/// Which template each contact gets.
[[nodiscard]] ContactColumn templateColumn(const ChannelDescriptor &channel);

/// The buttons of a row, one for each channel.
[[nodiscard]] ContactColumn actionsColumn();

[[nodiscard]] bool isSentOnAnyChannel(const Cell &cell);

} // namespace quenoria
