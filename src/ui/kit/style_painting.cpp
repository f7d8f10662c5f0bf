#include "ui/kit/style_painting.h"

#include "ui/kit/button_role.h"
#include "ui/kit/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

namespace quenoria {

namespace {

constexpr qreal boxRadius = 6;
constexpr qreal checkRadius = 4;
constexpr int iconGap = 8;
constexpr int thumbInset = 3;
constexpr int hoverShade = 104; ///< per cent, as QColor::darker() takes it
constexpr int pressedShade = 112;

QColor shaded(const QColor &color, QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        return color.darker(pressedShade);
    const bool hovered = state & QStyle::State_MouseOver && state & QStyle::State_Enabled;
    return hovered ? color.darker(hoverShade) : color;
}

/// Only a user who moves with the keyboard is shown where the focus is on a button.
bool hasKeyboardFocus(QStyle::State state)
{
    return state & QStyle::State_HasFocus && state & QStyle::State_KeyboardFocusChange;
}

void drawRounded(QPainter *painter, const QRectF &rect, const QColor &fill, const QPen &border,
                 qreal radius)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(border);
    painter->setBrush(fill);
    const qreal inset = border.widthF() / 2;
    painter->drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius - inset,
                             radius - inset);
    painter->restore();
}

void drawLine(QPainter *painter, const QPolygonF &points, const QColor &color, qreal width)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPolyline(points);
    painter->restore();
}

Tint labelTint(ButtonRole role)
{
    switch (role) {
    case ButtonRole::plain:
        return Tint::text;
    case ButtonRole::prominent:
        return Tint::onAccent;
    case ButtonRole::destructive:
        return Tint::negative;
    }
    Q_UNREACHABLE();
}

} // namespace

void drawBox(QPainter *painter, const QRect &rect, const QColor &fill, const QPen &border)
{
    drawRounded(painter, rect, fill, border, boxRadius);
}

void drawField(QPainter *painter, const QStyleOption *option, QPalette::ColorRole fill)
{
    const QPalette &palette = option->palette;
    const bool focused = option->state & QStyle::State_HasFocus;
    drawBox(painter, option->rect, palette.color(fill),
            focused ? QPen(palette.color(QPalette::Highlight), 2)
                    : QPen(palette.color(QPalette::Mid), 1));
}

void drawButtonPanel(QPainter *painter, const QStyleOption *option, const QWidget *widget)
{
    const bool prominent = buttonRole(widget) == ButtonRole::prominent;
    const auto color = [option](QPalette::ColorRole role) { return option->palette.color(role); };
    QColor fill = color(prominent ? QPalette::Highlight : QPalette::Button);
    const bool isOn = !prominent && option->state & QStyle::State_On;
    if (isOn)
        fill = color(QPalette::Midlight);
    QPen border(color(prominent || isOn ? QPalette::Highlight : QPalette::Mid), 1);
    if (hasKeyboardFocus(option->state))
        border = QPen(color(prominent ? QPalette::WindowText : QPalette::Highlight), 2);
    drawBox(painter, option->rect, shaded(fill, option->state), border);
}

void drawButtonLabel(QPainter *painter, const QStyleOptionButton *button, const QWidget *widget)
{
    constexpr int flags = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic;
    const bool enabled = button->state & QStyle::State_Enabled;
    const QSize icon = button->icon.isNull() ? QSize(0, 0) : button->iconSize;
    const int gap = icon.isEmpty() || button->text.isEmpty() ? 0 : iconGap;
    const int text = button->fontMetrics.size(Qt::TextShowMnemonic, button->text).width();
    QRect rect = button->rect;
    rect.setLeft(rect.left() + (rect.width() - icon.width() - gap - text) / 2);
    const QRect iconRect(rect.left(), rect.center().y() - icon.height() / 2 + 1, icon.width(),
                         icon.height());
    button->icon.paint(painter, iconRect, Qt::AlignCenter,
                       enabled ? QIcon::Normal : QIcon::Disabled);
    rect.setLeft(rect.left() + icon.width() + gap);
    painter->setPen(tintColor(labelTint(buttonRole(widget)), button->palette));
    painter->drawText(rect, flags, button->text);
}

namespace {

/// The ground of what can be chosen, in the accent once it is.
void drawChoice(QPainter *painter, const QStyleOption *option, bool chosen, qreal radius)
{
    const QPalette &palette = option->palette;
    const QColor fill = palette.color(chosen ? QPalette::Highlight : QPalette::Base);
    QPen border(palette.color(chosen ? QPalette::Highlight : QPalette::Dark), 1);
    if (hasKeyboardFocus(option->state))
        border = QPen(palette.color(chosen ? QPalette::WindowText : QPalette::Highlight), 2);
    drawRounded(painter, option->rect, shaded(fill, option->state), border, radius);
}

} // namespace

void drawRadioButton(QPainter *painter, const QStyleOption *option)
{
    constexpr qreal dot = 0.22; ///< radius, of the width
    const QRectF circle = option->rect;
    const bool chosen = option->state & QStyle::State_On;
    drawChoice(painter, option, chosen, circle.width() / 2);
    if (!chosen)
        return;
    painter->setPen(Qt::NoPen);
    painter->setBrush(option->palette.color(QPalette::HighlightedText));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->drawEllipse(circle.center(), dot * circle.width(), dot * circle.width());
}

void drawCheckBox(QPainter *painter, const QStyleOption *option)
{
    const bool partly = option->state & QStyle::State_NoChange;
    const bool checked = partly || option->state & QStyle::State_On;
    drawChoice(painter, option, checked, checkRadius);
    if (!checked)
        return;
    const QPalette &palette = option->palette;
    const QRectF box = option->rect;
    const auto at = [&box](qreal x, qreal y) {
        return box.topLeft() + QPointF(x * box.width(), y * box.height());
    };
    const QPolygonF tick{at(0.26, 0.52), at(0.43, 0.69), at(0.75, 0.33)};
    const QPolygonF dash{at(0.28, 0.5), at(0.72, 0.5)};
    drawLine(painter, partly ? dash : tick, palette.color(QPalette::HighlightedText), 1.75);
}

void drawChevron(QPainter *painter, const QRect &rect, const QColor &color, Pointing pointing)
{
    const QPointF centre = QRectF(rect).center();
    const qreal rise = pointing == Pointing::down ? 1.75 : -1.75;
    const QPolygonF chevron{centre + QPointF(-3.5, -rise), centre + QPointF(0, rise),
                            centre + QPointF(3.5, -rise)};
    drawLine(painter, chevron, color, 1.5);
}

void drawHeaderSection(QPainter *painter, const QStyleOption *option)
{
    const QRect &rect = option->rect;
    const QPalette &palette = option->palette;
    painter->fillRect(rect, shaded(palette.color(QPalette::AlternateBase), option->state));
    painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, palette.color(QPalette::Mid));
    const auto *header = qstyleoption_cast<const QStyleOptionHeader *>(option);
    if (header && header->position != QStyleOptionHeader::End)
        painter->fillRect(rect.right(), rect.top() + 8, 1, rect.height() - 16,
                          palette.color(QPalette::Mid));
}

void drawScrollThumb(QPainter *painter, const QRect &thumb, const QStyleOption *option)
{
    const QRect pill = thumb.adjusted(thumbInset, thumbInset, -thumbInset, -thumbInset);
    const qreal radius = qMin(pill.width(), pill.height()) / 2.0;
    drawRounded(painter, pill, shaded(option->palette.color(QPalette::Dark), option->state),
                Qt::NoPen, radius);
}

} // namespace quenoria
