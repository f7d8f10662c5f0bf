#pragma once

#include <functional>

namespace quenoria {

enum class ColorScheme { Unknown, Dark, Light };

/// The desktop's choice between light and dark.
class ColorSchemeSource {
public:
    virtual ~ColorSchemeSource() = default;

    /// Unknown where the desktop does not say, or has not yet.
    [[nodiscard]] virtual ColorScheme value() const = 0;

    /// Asks the desktop, and calls back at each other answer from then on.
    virtual void follow(std::function<void(ColorScheme)> changed) = 0;
};

} // namespace quenoria
