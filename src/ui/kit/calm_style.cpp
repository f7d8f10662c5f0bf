#include "ui/kit/calm_style.h"

#include "ui/kit/button_role.h"
#include "ui/kit/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qreal radius = 6;
constexpr qreal checkRadius = 4;
constexpr int controlHeight = 32;
constexpr int buttonPadding = 28; ///< both sides together
constexpr int smallestButton = 80;
constexpr int hoverShade = 104; ///< per cent, as QColor::darker() takes it
constexpr int pressedShade = 112;

QColor shaded(const QColor &color, QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        return color.darker(pressedShade);
    const bool hovered = state & QStyle::State_MouseOver && state & QStyle::State_Enabled;
    return hovered ? color.darker(hoverShade) : color;
}

/// A rounded box: one physical line of border, or a ring of accent while it has the focus.
void drawBox(QPainter *painter, const QRect &rect, const QColor &fill, const QPen &border,
             qreal corner = radius)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(border);
    painter->setBrush(fill);
    const qreal inset = border.widthF() / 2;
    painter->drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), corner - inset,
                             corner - inset);
    painter->restore();
}

QPen fieldBorder(const QStyleOption *option)
{
    const bool focused = option->state & QStyle::State_HasFocus;
    return focused ? QPen(option->palette.color(QPalette::Highlight), 2)
                   : QPen(option->palette.color(QPalette::Mid), 1);
}

void drawButton(QPainter *painter, const QStyleOption *option, const QWidget *widget)
{
    const QPalette &palette = option->palette;
    const bool prominent = buttonRole(widget) == ButtonRole::prominent;
    const bool flat = option->state & QStyle::State_AutoRaise;
    QColor fill = palette.color(prominent ? QPalette::Highlight : QPalette::Button);
    if (!prominent && option->state & QStyle::State_On)
        fill = palette.color(QPalette::Midlight);
    QPen border(palette.color(prominent ? QPalette::Highlight : QPalette::Mid), 1);
    if (option->state & QStyle::State_HasFocus && option->state & QStyle::State_KeyboardFocusChange)
        border = QPen(palette.color(prominent ? QPalette::WindowText : QPalette::Highlight), 2);
    if (flat && !(option->state & (QStyle::State_MouseOver | QStyle::State_Sunken)))
        return;
    drawBox(painter, option->rect, shaded(fill, option->state), border);
}

void drawTick(QPainter *painter, const QRectF &box, bool partly)
{
    const auto at = [&box](qreal x, qreal y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    QPainterPath path(partly ? at(0.28, 0.5) : at(0.26, 0.52));
    if (!partly)
        path.lineTo(at(0.43, 0.69));
    path.lineTo(partly ? at(0.72, 0.5) : at(0.75, 0.33));
    painter->drawPath(path);
}

void drawCheckBox(QPainter *painter, const QStyleOption *option)
{
    const bool partly = option->state & QStyle::State_NoChange;
    const bool checked = partly || option->state & QStyle::State_On;
    const QPalette &palette = option->palette;
    const QColor fill = palette.color(checked ? QPalette::Highlight : QPalette::Base);
    QPen border = QPen(palette.color(checked ? QPalette::Highlight : QPalette::Dark), 1);
    if (option->state & QStyle::State_HasFocus)
        border = QPen(palette.color(checked ? QPalette::WindowText : QPalette::Highlight), 2);
    drawBox(painter, option->rect, shaded(fill, option->state), border, checkRadius);
    if (!checked)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(palette.color(QPalette::HighlightedText), 1.75, Qt::SolidLine,
                         Qt::RoundCap, Qt::RoundJoin));
    drawTick(painter, option->rect, partly);
    painter->restore();
}

void drawChevron(QPainter *painter, const QRect &rect, const QColor &color)
{
    const QPointF centre = QRectF(rect).center();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPolygonF line{centre + QPointF(-3.5, -1.75), centre + QPointF(0, 1.75),
                         centre + QPointF(3.5, -1.75)};
    painter->drawPolyline(line);
    painter->restore();
}

QPalette::ColorRole labelRole(ButtonRole role)
{
    switch (role) {
    case ButtonRole::plain:
        return QPalette::ButtonText;
    case ButtonRole::prominent:
        return tintRole(Tint::onAccent);
    case ButtonRole::destructive:
        return tintRole(Tint::negative);
    }
    Q_UNREACHABLE();
}

} // namespace

CalmStyle::CalmStyle() : QProxyStyle(u"Fusion"_s) {}

int CalmStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                           const QWidget *widget) const
{
    switch (metric) {
    case PM_DefaultFrameWidth:
        return 2; // a rounded corner still hides the square one of what it frames
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 18;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return 12;
    case PM_CheckBoxLabelSpacing:
        return 8;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CalmStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *data) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_FormLayoutLabelAlignment:
        return int(Qt::AlignLeading | Qt::AlignVCenter);
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize CalmStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                  const QWidget *widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result.setWidth(qMax(size.width() + buttonPadding, smallestButton));
        result.setHeight(qMax(result.height(), controlHeight));
        break;
    case CT_LineEdit:
        result.setHeight(qMax(result.height(), controlHeight));
        break;
    case CT_ComboBox:
        result.setHeight(qMax(result.height(), controlHeight));
        result.rwidth() += 12;
        break;
    default:
        break;
    }
    return result;
}

void CalmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                              QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        return drawButton(painter, option, widget);
    case PE_FrameDefaultButton:
    case PE_FrameFocusRect:
        if (element == PE_FrameFocusRect && !(widget && widget->inherits("QPushButton")))
            break;
        return;
    case PE_PanelLineEdit: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (!frame || frame->lineWidth <= 0)
            break;
        return drawBox(painter, option->rect, option->palette.color(QPalette::Base),
                       fieldBorder(option));
    }
    case PE_FrameLineEdit:
        return;
    case PE_Frame:
        return drawBox(painter, option->rect, option->palette.color(QPalette::Base),
                       fieldBorder(option));
    case PE_IndicatorCheckBox:
        return drawCheckBox(painter, option);
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void CalmStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (element == CE_PushButtonLabel && button) {
        QStyleOptionButton tinted = *button;
        tinted.palette.setColor(QPalette::ButtonText,
                                button->palette.color(labelRole(buttonRole(widget))));
        return QProxyStyle::drawControl(element, &tinted, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void CalmStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                   QPainter *painter, const QWidget *widget) const
{
    const auto *combo = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || !combo || combo->editable)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    drawBox(painter, option->rect, shaded(option->palette.color(QPalette::Button), option->state),
            fieldBorder(option));
    drawChevron(painter, subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget),
                option->palette.color(QPalette::ButtonText));
}

} // namespace quenoria
