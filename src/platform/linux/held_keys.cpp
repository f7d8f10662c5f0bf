#include "platform/linux/held_keys.h"

#include <QGuiApplication>

#include <X11/XKBlib.h>

namespace quenoria {

void askForHeldKeys()
{
    // Without a screen the toolkit offers the interface all the same, and no display behind it.
    const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application && application->display())
        XkbSetDetectableAutoRepeat(application->display(), True, nullptr);
}

} // namespace quenoria
