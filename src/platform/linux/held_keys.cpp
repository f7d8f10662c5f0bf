#include "platform/linux/held_keys.h"

#include <QGuiApplication>

#include <X11/XKBlib.h>

namespace quenoria {

void askForHeldKeys()
{
    if (const auto *display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        XkbSetDetectableAutoRepeat(display->display(), True, nullptr);
}

} // namespace quenoria
