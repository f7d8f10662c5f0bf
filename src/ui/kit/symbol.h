#pragma once

#include <QIcon>

namespace quenoria {

/// Colours that carry a meaning. Each keeps a contrast of at least 4.5:1 on the window and on the
/// text fields, in light and in dark.
enum class Tint { text, secondary, accent, positive, negative, onAccent };

/// The tint's colour on the given palette.
[[nodiscard]] QColor tintColor(Tint tint, const QPalette &palette);

/// One of the product's own drawings ("plus.circle.fill"), sharp at any size and tinted when it
/// is painted, so that it follows a change from light to dark. An unknown name is a programming
/// error and stops a debug build.
[[nodiscard]] QIcon symbol(const QString &name, Tint tint = Tint::text);

} // namespace quenoria
