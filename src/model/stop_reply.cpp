#include "model/stop_reply.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

bool asksToStop(const QString &text)
{
    QString folded = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    folded.removeIf([](QChar each) { return each.isMark(); });
    const auto begin =
        std::ranges::find_if(folded, [](QChar each) { return each.isLetterOrNumber(); });
    const QStringView words = QStringView(folded).sliced(begin - folded.begin());
    const QString stop = u"stop"_s;
    return words.startsWith(stop) &&
           (words.size() == stop.size() || !words[stop.size()].isLetter());
}

} // namespace quenoria
