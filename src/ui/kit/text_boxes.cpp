#include "ui/kit/text_boxes.h"

#include <QEvent>
#include <QSignalBlocker>

namespace quenoria {

namespace {

constexpr int innerPadding = 8;

void furnish(QPlainTextEdit *box, const QString &accessibleName)
{
    box->setAccessibleName(accessibleName);
    box->setTabChangesFocus(true);
    box->document()->setDocumentMargin(innerPadding);
}

} // namespace

PreviewBox::PreviewBox(const QString &accessibleName, QWidget *parent) : QPlainTextEdit(parent)
{
    furnish(this, accessibleName);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    takeFaintBackground();
}

void PreviewBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        takeFaintBackground();
    QPlainTextEdit::changeEvent(event);
}

void PreviewBox::takeFaintBackground()
{
    QPalette faint;
    faint.setColor(QPalette::Base, faint.color(QPalette::Midlight));
    setPalette(faint);
}

TextBox::TextBox(const QString &accessibleName, QWidget *parent) : QPlainTextEdit(parent)
{
    furnish(this, accessibleName);
}

QString TextBox::text() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

void TextBox::setText(const QString &text)
{
    if (text == this->text())
        return;
    const QSignalBlocker silence(this);
    setPlainText(text);
}

} // namespace quenoria
