#include "app/appearance.h"

#include "ui/kit/theme.h"

#include <QApplication>

namespace quenoria {

namespace {

constexpr int middleGrey = 128;

Appearance appearance(bool dark) { return dark ? Appearance::dark : Appearance::light; }

} // namespace

AppearanceKeeper::AppearanceKeeper(std::optional<bool> dark)
    : m_startedDark(QApplication::palette().window().color().lightness() < middleGrey)
{
    if (dark) {
        applyTheme(appearance(*dark));
        return;
    }
    m_desktop.emplace(QDBusConnection::sessionBus());
    connect(&*m_desktop, &ColorSchemeSetting::changed, this, &AppearanceKeeper::follow);
    follow(m_desktop->value());
}

void AppearanceKeeper::follow(ColorScheme scheme) const
{
    const bool dark = scheme == ColorScheme::Unknown ? m_startedDark : scheme == ColorScheme::Dark;
    applyTheme(appearance(dark));
}

} // namespace quenoria
