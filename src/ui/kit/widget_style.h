#pragma once

#include <QProxyStyle>

namespace quenoria {

/// The product's look over Fusion: rounded fields and buttons, one accent, generous spacing. It
/// takes every colour from the palette.
class WidgetStyle : public QProxyStyle {
    Q_OBJECT

public:
    WidgetStyle();

    /// Also makes plain what a label or a tooltip would take for markup.
    void polish(QWidget *widget) override;
    using QProxyStyle::polish;

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
};

} // namespace quenoria
