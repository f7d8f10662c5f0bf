#include "ui/kit/text_boxes.h"

#include "ui/kit/plain_text.h"

#include <QSignalBlocker>

#include <QTextCursor>

using namespace Qt::StringLiterals;

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

QStringList listedSection(const QString &title, const QStringList &lines)
{
    constexpr qsizetype mostLines = 1000;
    if (lines.isEmpty())
        return {};
    QStringList shown{u"%1 (%2)"_s.arg(title, QString::number(lines.size()))};
    for (const QString &line : lines.first(qMin(lines.size(), mostLines)))
        shown << u"    "_s + oneLine(line);
    if (lines.size() > mostLines)
        shown << u"    … et %1 autre(s)"_s.arg(lines.size() - mostLines);
    return shown << QString();
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
