#include "app/appearance.h"

#include "ui/kit/theme.h"

#include <QApplication>

namespace quenoria {

namespace {

constexpr int middleGrey = 128;

void show(bool dark) { applyTheme(dark ? Appearance::dark : Appearance::light); }

} // namespace

void keepAppearance(std::optional<bool> dark, ColorSchemeSource &desktop)
{
    if (dark)
        return show(*dark);
    // How the toolkit found the desktop counts when that does not say.
    const bool startedDark = QApplication::palette().window().color().lightness() < middleGrey;
    const auto follow = [startedDark](ColorScheme scheme) {
        show(scheme == ColorScheme::Unknown ? startedDark : scheme == ColorScheme::Dark);
    };
    desktop.follow(follow);
    follow(desktop.value());
}

} // namespace quenoria
