#pragma once

#include <QColor>
#include <QPen>
#include <QStyle>

class QPainter;
class QStyleOptionButton;

namespace quenoria {

// The strokes of WidgetStyle. Each takes its colours from the option's palette.

/// A rounded box, its border inside the rectangle.
void drawBox(QPainter *painter, const QRect &rect, const QColor &fill, const QPen &border);

/// The box of a field: a thin border, or a ring of accent while it has the focus.
void drawField(QPainter *painter, const QStyleOption *option, QPalette::ColorRole fill);

void drawButtonPanel(QPainter *painter, const QStyleOption *option, const QWidget *widget);

/// Symbol and text side by side in the middle of the button.
void drawButtonLabel(QPainter *painter, const QStyleOptionButton *button, const QWidget *widget);

void drawCheckBox(QPainter *painter, const QStyleOption *option);
void drawRadioButton(QPainter *painter, const QStyleOption *option);

enum class Pointing { up, down };
void drawChevron(QPainter *painter, const QRect &rect, const QColor &color, Pointing pointing);

void drawHeaderSection(QPainter *painter, const QStyleOption *option);

/// A pill without arrows over an empty groove.
void drawScrollThumb(QPainter *painter, const QRect &thumb, const QStyleOption *option);

} // namespace quenoria
