#include "ui/queue/slim_progress_bar.h"

#include "ui/kit/theme.h"

#include <QPainter>

namespace quenoria {

namespace {

constexpr int thickness = 6;

} // namespace

SlimProgressBar::SlimProgressBar(QWidget *parent) : QProgressBar(parent)
{
    setTextVisible(false);
    setFixedHeight(thickness);
}

void SlimProgressBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto draw = [&](qreal part, const QColor &color) {
        painter.setBrush(color);
        const QRectF line(0, 0, width() * part, height());
        painter.drawRoundedRect(line, thickness / 2.0, thickness / 2.0);
    };
    draw(1, palette().color(QPalette::Midlight));
    if (value() > minimum())
        draw(qreal(value() - minimum()) / (maximum() - minimum()),
             tintColor(Tint::accent, palette()));
}

} // namespace quenoria
