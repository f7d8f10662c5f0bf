#include "platform/linux/message_ids.h"

#include <QCryptographicHash>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString key = u"BoiteMessagesEnDoute"_s;
constexpr qsizetype mostKept = 50;

/// Tells messages apart without telling what is in them.
QString fingerprint(const OutgoingMessage &message, const QString &sender)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QStringList parts{sender, message.subject, message.content};
    parts += message.recipients + message.attachments;
    for (const QString &part : parts) {
        hash.addData(QByteArray::number(part.size()));
        hash.addData(part.toUtf8());
    }
    return QString::fromLatin1(hash.result().toHex());
}

} // namespace

/// Each message takes one word, "fingerprint=id", the oldest first.
QByteArray MessageIds::begin(const OutgoingMessage &message, const QString &sender)
{
    QStringList words = m_preferences.text(key).value_or(QString()).split(u' ', Qt::SkipEmptyParts);
    const QString start = fingerprint(message, sender) + u'=';
    for (const QString &word : words) {
        if (word.startsWith(start))
            return word.sliced(start.size()).toLatin1();
    }
    const QString unique = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString id = unique + u'@' + sender.section(u'@', -1).trimmed();
    words = words.last(std::min(words.size(), mostKept - 1)) << start + id;
    m_preferences.setText(key, words.join(u' '));
    return id.toLatin1();
}

void MessageIds::settle(const QByteArray &id)
{
    QStringList words = m_preferences.text(key).value_or(QString()).split(u' ', Qt::SkipEmptyParts);
    words.removeIf(
        [&](const QString &word) { return word.endsWith(u'=' + QLatin1StringView(id)); });
    m_preferences.setText(key, words.join(u' '));
}

} // namespace quenoria
