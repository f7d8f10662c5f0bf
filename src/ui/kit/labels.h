#pragma once

#include "ui/kit/theme.h"

class QFont;
class QLabel;

namespace quenoria {

/// The sizes of text in the product.
enum class TextStyle { largeTitle, title, headline, body, footnote };

[[nodiscard]] QFont styledFont(TextStyle style);

/// A label that wraps, in the application's font.
[[nodiscard]] QLabel *makeLabel(const QString &text, TextStyle style = TextStyle::body,
                                Tint tint = Tint::text);

} // namespace quenoria
