#include "platform/linux/phone_transport.h"

#include "platform/linux/phone_confirmation.h"
#include "platform/linux/sms_handle.h"

#include <QDBusArgument>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString isUnreachable = u"Le téléphone n’est pas joignable."_s;
const QString mayNotSend = u"Le téléphone n’autorise pas KDE Connect à envoyer des SMS."_s;
const QString noAnswer =
    u"Le téléphone n’a pas répondu à temps : le message est peut-être parti."_s;
const QString isRefused = u"Le téléphone n’a pas pu envoyer le message."_s;
const QString daemonRefuses = u"KDE Connect a refusé le message (%1)."_s;
const QString fileIsUnreadable = u"Le fichier joint « %1 » ne peut pas être lu."_s;
const QString fileIsGone =
    u"Le fichier joint « %1 » ne peut pas être lu : le texte est déjà parti."_s;

/// KDE Connect wants each number as a structure: a plain text would be sent to nobody, and succeed.
QVariant asAddress(const QString &handle)
{
    QDBusArgument address;
    address.beginStructure();
    address << handle;
    address.endStructure();
    return QVariant::fromValue(QDBusVariant(QVariant::fromValue(address)));
}

QVariant asVariants(const QVariantList &values)
{
    QDBusArgument list;
    list.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const QVariant &value : values)
        list << value.value<QDBusVariant>();
    list.endArray();
    return QVariant::fromValue(list);
}

/// A file that is not there would be sent as an empty one, with success.
bool canBeRead(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

QVariant asFiles(const QStringList &paths)
{
    QVariantList files;
    for (const QString &path : paths)
        files << QVariant::fromValue(QDBusVariant(path));
    return asVariants(files);
}

} // namespace

PhoneTransport::PhoneTransport(const QDBusConnection &bus, QString device,
                               std::chrono::milliseconds confirmation)
    : m_daemon(bus, kdeConnect), m_device(std::move(device)), m_confirmation(confirmation)
{
}

TransportResult PhoneTransport::sendText(MessagesService, const QString &handle,
                                         const QString &text)
{
    if (auto unfit = unfitForSms(handle, text))
        return unfit;
    return submit(handle, text, {});
}

TransportResult PhoneTransport::fileRefusal(MessagesService, const QString &path) const
{
    if (canBeRead(path))
        return {};
    return TransportFailure{fileIsUnreadable.arg(path)};
}

TransportResult PhoneTransport::sendFile(MessagesService, const QString &handle,
                                         const QString &path)
{
    if (!canBeRead(path))
        return TransportFailure{fileIsGone.arg(path), Fate::perhapsSent};
    TransportResult failure = unfitForSms(handle, {});
    if (!failure)
        failure = submit(handle, {}, {QFileInfo(path).absoluteFilePath()});
    if (failure)
        failure->fate = Fate::perhapsSent;
    return failure;
}

TransportResult PhoneTransport::unreachable() const
{
    const QString path = phonePath(m_device);
    const QDBusMessage reachable = m_daemon.call(
        {path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {phoneInterface, u"isReachable"_s}});
    if (!reachable.arguments().value(0).value<QDBusVariant>().variant().toBool())
        return TransportFailure{isUnreachable};
    const QDBusMessage able =
        m_daemon.call({path, phoneInterface, u"hasPlugin"_s, {phoneSmsPlugin}});
    if (!able.arguments().value(0).toBool())
        return TransportFailure{mayNotSend};
    return {};
}

TransportResult PhoneTransport::submit(const QString &handle, const QString &text,
                                       const QStringList &files)
{
    if (auto failure = unreachable())
        return failure;
    PhoneConfirmation confirmation(m_daemon, handle, text, m_lastConfirmed);
    if (!confirmation.isListening())
        return TransportFailure{isUnreachable};
    const QString path = phonePath(m_device);
    // Telephones announce what they sent once they were asked for messages.
    m_daemon.ask({path, conversationsInterface, u"requestConversation"_s, {qint64(-1), -1, 1}});
    const QDBusMessage taken =
        m_daemon.call({path + u"/sms"_s,
                       phoneSmsInterface,
                       u"sendSms"_s,
                       {asVariants({asAddress(handle)}), text, asFiles(files)}});
    if (taken.type() == QDBusMessage::ErrorMessage) {
        const bool isLost = taken.errorName().startsWith(u"org.freedesktop.DBus.Error."_s) &&
                            !taken.errorName().contains(u"Unknown"_s);
        return isLost ? TransportFailure{noAnswer, Fate::perhapsSent}
                      : TransportFailure{daemonRefuses.arg(taken.errorMessage())};
    }
    const std::optional<PhoneMessage> answer = confirmation.wait(m_confirmation);
    if (!answer)
        return TransportFailure{noAnswer, Fate::perhapsSent};
    m_lastConfirmed = answer->identifier;
    return answer->type == PhoneMessage::sent ? std::nullopt
                                              : TransportResult(TransportFailure{isRefused});
}

} // namespace quenoria
