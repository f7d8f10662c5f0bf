#pragma once

namespace quenoria {

/// Shows the application's main window above the others and gives it the keyboard, with the
/// sheet that may be open on it; nothing happens when no window is open.
void bringMainWindowToFront();

} // namespace quenoria
