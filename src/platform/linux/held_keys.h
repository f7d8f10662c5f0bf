#pragma once

#include <QtGlobal>

namespace quenoria {

/// Asks an X display to tell a key that is held as such: pressed again and again, released once.
/// By itself it makes up a release before each repeat, and the toolkit sees through that only when
/// both arrive together. Any other display tells what it repeats.
void askForHeldKeys();

/// Whether the key with the display's code is down right now; true where the display does not say.
[[nodiscard]] bool isKeyDown(quint32 code);

} // namespace quenoria
