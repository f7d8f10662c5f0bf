#include "backup/backup_note.h"

#include <QList>

#include <algorithm>

namespace quenoria {

namespace {

const QByteArray firstLine = "Quenoria";
constexpr qsizetype lineCount = 5;

} // namespace

QByteArray noteText(const BackupNote &note)
{
    return QList<QByteArray>{firstLine, instantText(note.date), QByteArray::number(note.contacts),
                             QByteArray::number(note.sends), note.digest}
        .join('\n');
}

std::optional<BackupNote> noteFromText(const QByteArray &text)
{
    const QList<QByteArray> lines = text.split('\n');
    if (lines.size() != lineCount || lines[0] != firstLine)
        return std::nullopt;
    const auto date = instantFromText(lines[1]);
    bool areNumbers[2] = {};
    BackupNote note{date.value_or(Instant()), lines[2].toLongLong(&areNumbers[0]),
                    lines[3].toLongLong(&areNumbers[1]), lines[4]};
    if (!date || !areNumbers[0] || !areNumbers[1] || std::min(note.contacts, note.sends) < 0)
        return std::nullopt;
    return note;
}

} // namespace quenoria
