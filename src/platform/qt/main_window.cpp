#include "platform/qt/main_window.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace quenoria {

namespace {

bool isMainWindow(const QWidget *widget)
{
    return widget->windowType() == Qt::Window && !widget->parentWidget() && widget->isVisible();
}

} // namespace

void bringMainWindowToFront()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto main = std::ranges::find_if(windows, isMainWindow);
    if (main == windows.end())
        return;
    (*main)->setWindowState((*main)->windowState() & ~Qt::WindowMinimized);
    (*main)->raise();
    QWidget *sheet = QApplication::activeModalWidget();
    (sheet ? sheet : *main)->activateWindow();
}

} // namespace quenoria
