#include "platform/qt/journal.h"

#include <QLoggingCategory>

namespace quenoria {

namespace {

Q_LOGGING_CATEGORY(category, "quenoria")

} // namespace

/// What other programs answer may hold line breaks; an entry stays on one line.
void Journal::write(const QString &line)
{
    QString entry = line;
    for (const QChar lineBreak : {u'\r', u'\n'})
        entry.replace(lineBreak, u' ');
    qCWarning(category).noquote() << entry;
}

} // namespace quenoria
