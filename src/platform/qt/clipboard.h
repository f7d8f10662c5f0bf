#pragma once

#include "platform/pasteboard.h"

namespace quenoria {

/// The clipboard of the graphical session.
class Clipboard : public Pasteboard {
public:
    void setText(const QString &text) override;
};

} // namespace quenoria
