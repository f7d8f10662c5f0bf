#pragma once

class QWidget;

namespace quenoria {

/// Shows the window and returns once it has been painted, or nobody asked for that in a while (it
/// may start behind others). What the user does meanwhile is kept for afterwards.
void showFirstPicture(QWidget &window);

} // namespace quenoria
