#include "ui/kit/widget_style.h"

#include "ui/kit/mnemonics.h"
#include "ui/kit/style_painting.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int controlHeight = 32;
constexpr int buttonPadding = 32; ///< both sides together
constexpr int smallestButton = 80;
constexpr int fieldInset = 6;
constexpr int rowPadding = 8;
constexpr int indicatorSide = 18;
constexpr int shortestThumb = 32;

/// Where the part of a scroll bar without arrow buttons lies.
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part)
{
    const bool across = bar.orientation == Qt::Horizontal;
    const int length = across ? bar.rect.width() : bar.rect.height();
    const int steps = bar.maximum - bar.minimum;
    const qint64 share = qint64(length) * bar.pageStep / qMax(qint64(steps) + bar.pageStep, 1LL);
    const int thumb = steps == 0 ? length : qBound(qMin(shortestThumb, length), int(share), length);
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - thumb, bar.upsideDown);
    const auto span = [&bar, across](int from, int to) {
        const QRect &rect = bar.rect;
        return across ? QRect(rect.left() + from, rect.top(), to - from, rect.height())
                      : QRect(rect.left(), rect.top() + from, rect.width(), to - from);
    };
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return span(start, start + thumb);
    case QStyle::SC_ScrollBarSubPage:
        return span(0, start);
    case QStyle::SC_ScrollBarAddPage:
        return span(start + thumb, length);
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    default:
        return {};
    }
}

bool hasCheckBox(const QStyleOption *option)
{
    const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option);
    return item && item->features & QStyleOptionViewItem::HasCheckIndicator;
}

bool isFramed(const QStyleOption *option)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    return frame && frame->lineWidth > 0;
}

/// The button with its letter underlined.
QStyleOptionButton withMnemonic(const QStyleOptionButton &option, const QWidget *widget)
{
    QStyleOptionButton shown = option;
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    if (!button || !QKeySequence::mnemonic(option.text).isEmpty())
        return shown;
    if (const qsizetype place = Mnemonics::placeOf(button->shortcut(), option.text); place >= 0)
        shown.text.insert(place, u'&');
    return shown;
}

} // namespace

WidgetStyle::WidgetStyle() : QProxyStyle(u"Fusion"_s) {}

/// Tooltips are labels too, and so are the texts of message boxes: whatever a text is shown in, a
/// user's "<" is one. Every menu gets its letters here, also those that the toolkit makes.
void WidgetStyle::polish(QWidget *widget)
{
    auto *label = qobject_cast<QLabel *>(widget);
    if (label && label->textFormat() == Qt::AutoText)
        label->setTextFormat(Qt::PlainText);
    if (auto *menu = qobject_cast<QMenu *>(widget))
        MenuMnemonics::follow(*menu);
    QProxyStyle::polish(widget);
}

int WidgetStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                             const QWidget *widget) const
{
    switch (metric) {
    case PM_DefaultFrameWidth:
        return 2; // a rounded corner still hides the square one of what it frames
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return indicatorSide;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
    case PM_ScrollBarExtent:
        return 12;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
    case PM_HeaderMargin:
        return rowPadding;
    case PM_FocusFrameHMargin:
        return rowPadding - 1; // item views add one to it, and so line up with their header
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int WidgetStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                           QStyleHintReturn *data) const
{
    switch (hint) {
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
        return 0;
    case SH_FormLayoutLabelAlignment:
        return int(Qt::AlignLeading | Qt::AlignVCenter);
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize WidgetStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                    const QSize &size, const QWidget *widget) const
{
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    switch (type) {
    case CT_PushButton:
        result.setWidth(qMax(size.width() + buttonPadding, smallestButton));
        return result.expandedTo({0, controlHeight});
    case CT_ComboBox:
        result.rwidth() += 2 * fieldInset;
        return result.expandedTo({0, controlHeight});
    case CT_LineEdit:
    case CT_SpinBox:
        return result.expandedTo({0, controlHeight});
    case CT_ItemViewItem:
        if (widget && widget->inherits("QComboBoxListView"))
            result.rheight() += rowPadding;
        return hasCheckBox(option) ? result.expandedTo({0, indicatorSide + rowPadding}) : result;
    default:
        return result;
    }
}

QRect WidgetStyle::subElementRect(SubElement element, const QStyleOption *option,
                                  const QWidget *widget) const
{
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    if (element == SE_LineEditContents && isFramed(option))
        return rect.adjusted(fieldInset, 0, -fieldInset, 0);
    return rect;
}

QRect WidgetStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                  SubControl part, const QWidget *widget) const
{
    if (control == CC_ScrollBar) {
        if (const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option))
            return scrollBarPart(*bar, part);
    }
    const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const bool isText = (control == CC_ComboBox && part == SC_ComboBoxEditField) ||
                        (control == CC_SpinBox && part == SC_SpinBoxEditField);
    if (isText)
        return rect.adjusted(fieldInset, 0, 0, 0);
    return rect;
}

void WidgetStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                QPainter *painter, const QWidget *widget) const
{
    switch (element) {
    case PE_PanelButtonCommand:
        return drawButtonPanel(painter, option, widget);
    case PE_PanelLineEdit:
        if (isFramed(option))
            return drawField(painter, option, QPalette::Base);
        break;
    case PE_Frame:
        return drawField(painter, option, QPalette::Base);
    case PE_IndicatorCheckBox:
        return drawCheckBox(painter, option);
    case PE_IndicatorRadioButton:
        return drawRadioButton(painter, option);
    case PE_FrameDefaultButton: // said by the accent
    case PE_FrameLineEdit:      // drawn with the panel
        return;
    case PE_FrameFocusRect:
        if (qobject_cast<const QPushButton *>(widget) || qobject_cast<const QCheckBox *>(widget) ||
            qobject_cast<const QRadioButton *>(widget))
            return; // drawn with the panel, the box or the circle
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void WidgetStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    switch (element) {
    case CE_PushButtonLabel:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            const QStyleOptionButton shown = withMnemonic(*button, widget);
            return drawButtonLabel(painter, &shown, widget);
        }
        break;
    case CE_CheckBoxLabel:
    case CE_RadioButtonLabel:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            const QStyleOptionButton shown = withMnemonic(*button, widget);
            return QProxyStyle::drawControl(element, &shown, painter, widget);
        }
        break;
    case CE_HeaderSection:
        return drawHeaderSection(painter, option);
    case CE_ShapedFrame: {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (!frame || frame->frameShape != QFrame::HLine)
            break;
        const QRect line(option->rect.left(), option->rect.center().y(), option->rect.width(), 1);
        return painter->fillRect(line, option->palette.color(QPalette::Mid));
    }
    default:
        break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void WidgetStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                     QPainter *painter, const QWidget *widget) const
{
    const auto part = [&](SubControl name) {
        return subControlRect(control, option, name, widget);
    };
    const QColor ink = option->palette.color(QPalette::ButtonText);
    switch (control) {
    case CC_ComboBox:
        drawField(painter, option, QPalette::Button);
        return drawChevron(painter, part(SC_ComboBoxArrow), ink, Pointing::down);
    case CC_SpinBox:
        drawField(painter, option, QPalette::Base);
        drawChevron(painter, part(SC_SpinBoxUp), ink, Pointing::up);
        return drawChevron(painter, part(SC_SpinBoxDown), ink, Pointing::down);
    case CC_ScrollBar:
        painter->fillRect(option->rect, option->palette.color(QPalette::Base));
        return drawScrollThumb(painter, part(SC_ScrollBarSlider), option);
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

} // namespace quenoria
