#pragma once

#include "platform/linux/color_scheme.h"

#include <optional>

namespace quenoria {

/// Keeps the application light or dark: as it was asked for at the start, else as the desktop is,
/// from one moment to the next.
class AppearanceKeeper : public QObject {
    Q_OBJECT

public:
    explicit AppearanceKeeper(std::optional<bool> dark);

private:
    void follow(ColorScheme scheme) const;

    bool m_startedDark; ///< how the toolkit found the desktop, when the portal does not say
    std::optional<ColorSchemeSetting> m_desktop;
};

} // namespace quenoria
