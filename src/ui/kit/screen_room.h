#pragma once

#include <QSize>

class QWidget;

namespace quenoria {

/// The largest a window may be on the widget's screen: what the desktop's own bars leave, less
/// the frame that it will put around the window.
[[nodiscard]] QSize screenRoom(const QWidget &widget);

/// Brings a window, whose place was another screen's, wholly onto its own.
void keepOnScreen(QWidget &window);

} // namespace quenoria
