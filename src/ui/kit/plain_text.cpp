#include "ui/kit/plain_text.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr QChar ellipsis = u'…';
constexpr QChar zeroWidthSpace = u'\u200B';

/// Longer than an e-mail address or a number that somebody would want to copy.
constexpr int longestWord = 60;

constexpr qsizetype menuCharacters = 80;
constexpr TextRoom tipRoom{400, 8};

bool turnsDirection(QChar c)
{
    return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069');
}

bool breaksLine(QChar c)
{
    return c == u'\n' || c == u'\r' || c == u'\u0085' || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

bool isControl(QChar c) { return c.category() == QChar::Other_Control || breaksLine(c); }

bool needsWork(QChar c) { return isControl(c) || turnsDirection(c); }

/// The longest beginning that splits no visible character, unless one alone is longer than that.
QString beginning(const QString &text, qsizetype size)
{
    if (text.size() <= size)
        return text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.left(size + 1));
    finder.setPosition(size);
    if (!finder.isAtBoundary())
        finder.toPreviousBoundary();
    return text.left(finder.position() > 0 ? finder.position() : size) + ellipsis;
}

QString withSpaces(const QString &text)
{
    QString shown = text;
    shown.removeIf(turnsDirection);
    std::ranges::replace_if(shown, isControl, QChar(u' '));
    return shown;
}

QString withLines(const QString &text, qsizetype mostLines)
{
    QString shown;
    qsizetype lines = 1;
    const QString lineFeeds = QString(text).replace(u"\r\n"_s, u"\n"_s);
    for (const QChar c : lineFeeds) {
        if (breaksLine(c) && lines++ == mostLines)
            return shown + ellipsis;
        if (breaksLine(c))
            shown += u'\n';
        else if (!turnsDirection(c))
            shown += isControl(c) ? QChar(u' ') : c;
    }
    return shown;
}

/// Lets a line end inside a word without an end. It may end after the slash of a path as it is.
QString withBreaks(const QString &text)
{
    QString shown;
    int length = 0;
    for (const QChar c : text) {
        const bool mayBreak = c.isSpace() || (c.isLetter() && shown.endsWith(u'/'));
        length = mayBreak ? 0 : length + 1;
        if (length > longestWord && !c.isLowSurrogate() && !c.isMark()) {
            shown += zeroWidthSpace;
            length = 1;
        }
        shown += c;
    }
    return shown;
}

} // namespace

QString oneLine(const QString &text, qsizetype mostCharacters)
{
    if (text.size() <= mostCharacters && std::ranges::none_of(text, needsWork))
        return text;
    return beginning(withSpaces(text.left(2 * mostCharacters)), mostCharacters);
}

QString paragraph(const QString &text, TextRoom room)
{
    const QString lines = withLines(text.left(2 * room.characters), room.lines);
    return withBreaks(beginning(lines, room.characters));
}

QString wholeText(const QString &text) { return withLines(text, text.size() + 1); }

QString menuText(const QString &text)
{
    return oneLine(text, menuCharacters).replace(u'&', u"&&"_s);
}

QString tipText(const QString &text) { return paragraph(text, tipRoom); }

} // namespace quenoria
