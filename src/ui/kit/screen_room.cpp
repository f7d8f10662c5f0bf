#include "ui/kit/screen_room.h"

#include <QScreen>
#include <QWidget>

namespace quenoria {

namespace {

constexpr QSize frame{4, 40}; ///< what a desktop puts around a window, more or less

} // namespace

QSize screenRoom(const QWidget &widget) { return widget.screen()->availableSize() - frame; }

} // namespace quenoria
