#include "ui/kit/text_boxes.h"

#include <QSignalBlocker>

#include <QTextCursor>

namespace quenoria {

namespace {

constexpr int innerPadding = 8;
constexpr int linesInSight = 3;

void furnish(QPlainTextEdit *box, const QString &accessibleName)
{
    box->setAccessibleName(accessibleName);
    box->setTabChangesFocus(true);
    box->document()->setDocumentMargin(innerPadding);
    box->setMinimumHeight(linesInSight * box->fontMetrics().lineSpacing() + 2 * innerPadding +
                          2 * box->frameWidth());
}

} // namespace

PreviewBox::PreviewBox(const QString &accessibleName, QWidget *parent) : QPlainTextEdit(parent)
{
    furnish(this, accessibleName);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    viewport()->setBackgroundRole(QPalette::Midlight);
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

void TextBox::replaceText(const QString &text)
{
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.insertText(text);
}

void TextBox::setText(const QString &text)
{
    if (text == this->text())
        return;
    const QSignalBlocker silence(this);
    setPlainText(text);
}

} // namespace quenoria
