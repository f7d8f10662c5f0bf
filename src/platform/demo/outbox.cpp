#include "platform/demo/outbox.h"

#include "model/local_time.h"
#include "platform/mime/mime_message.h"
#include "platform/system_reason.h"

#include <QFile>
#include <QFileInfo>

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

Outbox::Outbox(QString folder, const Clock &clock, FileWriter &files)
    : m_folder(std::move(folder)), m_clock(clock), m_files(files)
{
}

TransportResult Outbox::file(const FiledSms &sms)
{
    const std::lock_guard lock(m_mutex);
    const QString name = freeName();
    if (!sms.attachment.isEmpty()) {
        const QString copyName = name + u'-' + QFileInfo(sms.attachment).fileName();
        if (TransportResult failure = copy(sms.attachment, copyName))
            return failure;
    }
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

QDateTime Outbox::now() const { return localDateTime(m_clock.now(), m_clock.zone()); }

/// Path without suffix: the universal time, since local time runs backwards once a year, and a
/// number that sets messages of the same second apart.
QString Outbox::freeName()
{
    const QString time = now().toUTC().toString(u"yyyyMMdd'T'HHmmss'Z'"_s);
    QString name;
    do
        name =
            u"%1/%2-%3"_s.arg(m_folder, time, QString::number(++m_count).rightJustified(4, u'0'));
    while (QFileInfo::exists(name + u".txt"_s) || QFileInfo::exists(name + u".eml"_s));
    return name;
}

TransportResult Outbox::write(const QString &path, const QByteArray &content)
{
    auto failure = m_files.makeFolder(m_folder);
    if (!failure)
        failure = m_files.write(path, content);
    return failure ? std::optional(TransportFailure{failure}) : std::nullopt;
}

TransportResult Outbox::copy(const QString &path, const QString &copyPath)
{
    QFile source(path);
    const bool isOpen = source.open(QIODevice::ReadOnly);
    const QByteArray content = isOpen ? source.readAll() : QByteArray();
    if (!isOpen || source.error() != QFile::NoError)
        return TransportFailure{u"Le fichier joint « %1 » ne peut pas être copié : %2"_s.arg(
            path, systemReason(source.errorString()))};
    return write(copyPath, content);
}

} // namespace quenoria
