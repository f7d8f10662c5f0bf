#include "platform/linux/email_portal.h"

#include "platform/system_reason.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const auto interfaceName = u"org.freedesktop.portal.Email"_s;
constexpr uint severalRecipients = 3; ///< first version of the interface that takes them
constexpr int presenceLimit = 2000;   ///< milliseconds

QDBusMessage portalCall(const QString &callInterface, const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s,
                                          u"/org/freedesktop/portal/desktop"_s, callInterface,
                                          method);
}

/// The mail application gets the open file: it may not be allowed to see its path.
QVariant openFiles(const QFile &file)
{
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    return QVariant::fromValue(QList{QDBusUnixFileDescriptor(file.handle())});
}

/// Without an answer, the draft may be open all the same.
Fate fateAfter(QDBusError::ErrorType error)
{
    const bool isUnanswered = error == QDBusError::NoReply || error == QDBusError::Timeout ||
                              error == QDBusError::TimedOut || error == QDBusError::Disconnected;
    return isUnanswered ? Fate::perhapsSent : Fate::kept;
}

} // namespace

bool EmailPortal::isPresent() const
{
    QDBusMessage question = portalCall(u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << interfaceName << u"version"_s;
    const QDBusMessage answer = m_bus.call(question, QDBus::Block, presenceLimit);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return false;
    const auto version = answer.arguments().constFirst().value<QDBusVariant>();
    return version.variant().toUInt() >= severalRecipients;
}

TransportResult EmailPortal::compose(const Composition &draft) const
{
    QVariantMap options{
        {u"addresses"_s, draft.recipients}, {u"subject"_s, draft.subject}, {u"body"_s, draft.body}};
    QFile file(draft.file.toLocalFile());
    if (!file.fileName().isEmpty()) {
        if (!file.open(QIODevice::ReadOnly))
            return TransportFailure{systemReason(file.errorString())};
        options.insert(u"attachment_fds"_s, openFiles(file));
    }
    QDBusMessage order = portalCall(interfaceName, u"ComposeEmail"_s);
    order << QString() << options;
    const QDBusMessage answer = m_bus.call(order);
    if (answer.type() == QDBusMessage::ErrorMessage)
        return TransportFailure{answer.errorMessage(), fateAfter(QDBusError(answer).type())};
    return {};
}

} // namespace quenoria
