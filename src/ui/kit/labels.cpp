#include "ui/kit/labels.h"

#include <QApplication>
#include <QEvent>

using namespace Qt::StringLiterals;

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

TextLabel::TextLabel(const QString &text, TextRoom room) : m_room(room)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

void TextLabel::setText(const QString &text) { QLabel::setText(paragraph(text, m_room)); }

TextLabel *makeLabel(const QString &text, TextStyle style, Tint tint)
{
    const bool isRunning = style == TextStyle::body || style == TextStyle::footnote;
    auto *label = new TextLabel(text, isRunning ? paragraphRoom : headingRoom);
    label->setWordWrap(true);
    label->setFont(styledFont(style));
    label->setForegroundRole(tintRole(tint));
    return label;
}

QLabel *makeCaption(const QString &text, QWidget *control)
{
    auto *caption = new QLabel(text);
    caption->setBuddy(control);
    return caption;
}

WebLink::WebLink(const QString &text, const QString &address) : m_text(text), m_address(address)
{
    setTextFormat(Qt::RichText);
    setAccessibleName(text);
    setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    setOpenExternalLinks(true);
    refresh();
}

void WebLink::refresh()
{
    setText(u"<a style=\"color: %1\" href=\"%2\"><b>%3</b></a>"_s.arg(
        tintColor(Tint::accent, palette()).name(), m_address, m_text));
}

/// A rich text keeps the colour that it was made with.
void WebLink::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        refresh();
    QLabel::changeEvent(event);
}

} // namespace quenoria
