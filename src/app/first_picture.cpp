#include "app/first_picture.h"

#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace quenoria {

namespace {

constexpr std::chrono::milliseconds longest{500};

/// The window's own painting begins that of its parts, and the loop ends behind the last of them.
class Painting : public QObject {
public:
    explicit Painting(QEventLoop &loop) : m_loop(loop) {}

    bool eventFilter(QObject * /*window*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            m_loop.quit();
        return false;
    }

private:
    QEventLoop &m_loop;
};

} // namespace

bool showFirstPicture(QWidget &window)
{
    QEventLoop loop;
    Painting painting(loop);
    window.installEventFilter(&painting);
    QTimer::singleShot(longest, &loop, &QEventLoop::quit);
    window.show();
    loop.exec();
    return window.isVisible();
}

} // namespace quenoria
