#include "platform/linux/held_keys.h"

#include <QGuiApplication>

#include <X11/XKBlib.h>

#include <array>

namespace quenoria {

namespace {

/// Without a screen the toolkit offers the interface all the same, and no display behind it.
Display *xDisplay()
{
    const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->display() : nullptr;
}

} // namespace

void askForHeldKeys()
{
    if (Display *display = xDisplay())
        XkbSetDetectableAutoRepeat(display, True, nullptr);
}

bool isKeyDown(quint32 code)
{
    Display *display = xDisplay();
    std::array<char, 32> keys{}; // a bit for each of 256 codes
    if (!display || code >= keys.size() * 8)
        return true;
    XQueryKeymap(display, keys.data());
    return (static_cast<unsigned char>(keys.at(code / 8)) >> (code % 8) & 1U) != 0;
}

} // namespace quenoria
