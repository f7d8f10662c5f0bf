#include "platform/demo/outbox.h"

#include "platform/mime/mime_message.h"
#include "platform/qt/private_folder.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QByteArray readable(const FiledSms &sms, const QDateTime &date)
{
    QString text = u"Destinataire : %1\nService : %2\nDate : %3\n"_s.arg(
        sms.handle, sms.service, date.toString(u"dd/MM/yyyy HH:mm:ss"_s));
    if (!sms.attachment.isEmpty())
        text += u"Pièce jointe : "_s + QFileInfo(sms.attachment).fileName() + u'\n';
    return (text + u'\n' + sms.text + u'\n').toUtf8();
}

} // namespace

Outbox::Outbox(QString folder, const Clock &clock) : m_folder(std::move(folder)), m_clock(clock) {}

TransportResult Outbox::file(const FiledSms &sms)
{
    const std::lock_guard lock(m_mutex);
    const QString name = freeName();
    const QFileInfo attachment(sms.attachment);
    if (!sms.attachment.isEmpty() &&
        !QFile::copy(sms.attachment, name + u'-' + attachment.fileName()))
        return TransportFailure{
            u"Le fichier joint « %1 » ne peut pas être copié."_s.arg(sms.attachment)};
    return write(name + u".txt"_s, readable(sms, now()));
}

TransportResult Outbox::file(const OutgoingMessage &email)
{
    const std::lock_guard lock(m_mutex);
    const auto mime = mimeMessage(email, m_clock);
    if (const auto *failure = std::get_if<TransportFailure>(&mime))
        return *failure;
    return write(freeName() + u".eml"_s, std::get<QByteArray>(mime));
}

QDateTime Outbox::now() const
{
    return QDateTime::fromMSecsSinceEpoch(m_clock.now().time_since_epoch().count(), m_clock.zone());
}

/// Path without suffix: the universal time, since local time runs backwards once a year, and a
/// number that sets messages of the same second apart.
QString Outbox::freeName()
{
    makePrivateFolder(m_folder);
    const QString time = now().toUTC().toString(u"yyyyMMdd'T'HHmmss'Z'"_s);
    QString name;
    do
        name = u"%1/%2-%3"_s.arg(m_folder, time).arg(++m_count, 4, 10, QChar(u'0'));
    while (QFileInfo::exists(name + u".txt"_s) || QFileInfo::exists(name + u".eml"_s));
    return name;
}

TransportResult Outbox::write(const QString &path, const QByteArray &content) const
{
    QSaveFile target(path);
    if (!target.open(QIODevice::WriteOnly) ||
        !target.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        target.write(content) != content.size() || !target.commit())
        return TransportFailure{target.errorString()};
    return {};
}

} // namespace quenoria
