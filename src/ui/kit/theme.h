#pragma once

#include <QPalette>

namespace quenoria {

enum class Appearance { light, dark };

/// Colours that carry a meaning. Each keeps a contrast of at least 4.5:1 on the window and on the
/// text fields, in light and in dark.
enum class Tint { text, secondary, accent, positive, negative, onAccent };

/// Tints are roles of the palette, so that a label given one follows a change of appearance.
[[nodiscard]] QPalette::ColorRole tintRole(Tint tint);

/// The tint's colour on the given palette.
[[nodiscard]] QColor tintColor(Tint tint, const QPalette &palette);

[[nodiscard]] QPalette themePalette(Appearance appearance);

/// Dresses the whole application: style and palette. May be called again when the desktop
/// changes its appearance; open windows follow at once.
void applyTheme(Appearance appearance);

} // namespace quenoria
