#pragma once

#include <QString>

namespace quenoria {

/// The desktop's clipboard.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// Replaces whatever it holds by the plain text.
    virtual void setText(const QString &text) = 0;
};

} // namespace quenoria
