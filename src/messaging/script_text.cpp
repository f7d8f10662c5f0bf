#include "messaging/script_text.h"

#include "messaging/line_ends.h"

using namespace Qt::StringLiterals;

namespace quenoria {

QString appleScriptEscaped(QString text)
{
    return text.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
}

QString appleScriptTextExpression(const QString &text)
{
    QStringList pieces = linesOf(text);
    for (QString &piece : pieces)
        piece = u'"' + appleScriptEscaped(piece) + u'"';
    return pieces.join(u" & return & "_s);
}

QString attachmentAssignment(const std::optional<QString> &path)
{
    if (!path)
        return {};
    return u"set attachmentFile to POSIX file \""_s + appleScriptEscaped(*path) + u"\" as alias"_s;
}

} // namespace quenoria
