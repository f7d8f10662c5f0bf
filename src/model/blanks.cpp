#include "model/blanks.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quenoria {

QStringList blanksIn(const QString &text)
{
    static const QRegularExpression blank(u"\\[[^\\[\\]\\r\\n]*[^\\[\\]\\s][^\\[\\]\\r\\n]*\\]"_s);
    QStringList blanks;
    for (auto found = blank.globalMatch(text); found.hasNext();)
        blanks << found.next().captured();
    blanks.removeDuplicates();
    return blanks;
}

} // namespace quenoria
