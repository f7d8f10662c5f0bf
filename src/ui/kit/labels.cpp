#include "ui/kit/labels.h"

#include <QApplication>
#include <QLabel>

namespace quenoria {

QFont styledFont(TextStyle style)
{
    QFont font = QApplication::font();
    const qreal size = font.pointSizeF();
    switch (style) {
    case TextStyle::largeTitle:
        font.setPointSizeF(size * 2.2);
        font.setWeight(QFont::Bold);
        break;
    case TextStyle::title:
        font.setPointSizeF(size * 1.5);
        font.setWeight(QFont::Bold);
        break;
    case TextStyle::headline:
        font.setWeight(QFont::DemiBold);
        break;
    case TextStyle::footnote:
        font.setPointSizeF(size * 0.9);
        break;
    case TextStyle::body:
        break;
    }
    return font;
}

QLabel *makeLabel(const QString &text, TextStyle style, Tint tint)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(styledFont(style));
    label->setForegroundRole(tintRole(tint));
    return label;
}

} // namespace quenoria
