#include "messaging/line_ends.h"

using namespace Qt::StringLiterals;

namespace quenoria {

QStringList linesOf(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').split(u'\n');
}

} // namespace quenoria
