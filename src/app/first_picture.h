#pragma once

class QWidget;

namespace quenoria {

/// Shows the window and returns once it has been painted, or nobody asked for that in a while (it
/// may start behind others). It is there for the user meanwhile; false when it was closed.
[[nodiscard]] bool showFirstPicture(QWidget &window);

} // namespace quenoria
