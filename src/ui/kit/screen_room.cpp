#include "ui/kit/screen_room.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace quenoria {

namespace {

constexpr QSize frame{4, 40}; ///< what a desktop puts around a window, more or less

} // namespace

void keepOnScreen(QWidget &window)
{
    window.resize(window.size().boundedTo(screenRoom(window)));
    const QRect room = window.screen()->availableGeometry();
    const QSize taken = window.size() + frame;
    const auto kept = [](int place, int first, int length, int size) {
        return std::max(first, std::min(place, first + length - size));
    };
    window.move(kept(window.x(), room.x(), room.width(), taken.width()),
                kept(window.y(), room.y(), room.height(), taken.height()));
}

QSize screenRoom(const QWidget &widget) { return widget.screen()->availableSize() - frame; }

} // namespace quenoria
