#include "platform/linux/modem_transport.h"

#include "model/sms_length.h"
#include "platform/linux/sms_handle.h"

#include <QDBusObjectPath>
#include <QDeadlineTimer>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString daemonIsGone = u"Le service des modems (ModemManager) n’est pas en marche."_s;
const QString isUnplugged = u"Le modem n’est pas branché."_s;
const QString hasNoRight = u"Ce compte n’a pas le droit d’envoyer des SMS par le modem."_s;
const QString noAnswer = u"Le modem n’a pas répondu à temps : le message est peut-être parti."_s;
const QString partlySent =
    u"Le réseau a refusé une partie du message (%1) : le début est peut-être "
    "parti."_s;
const QString isRefused = u"Le réseau a refusé le message (%1)."_s;
const QString daemonRefuses = u"Le modem a refusé le message (%1)."_s;
const QString takesNoFile = u"Ce transport n’envoie pas de fichier. Retirez le fichier joint, ou "
                            "choisissez le téléphone."_s;

constexpr std::chrono::milliseconds enableLimit{120'000};
constexpr unsigned long glance = 200; ///< milliseconds

bool isError(const QDBusMessage &answer) { return answer.type() == QDBusMessage::ErrorMessage; }

bool isUnauthorized(const QDBusMessage &error)
{
    return error.errorName() == modemManager + u".Error.Core.Unauthorized"_s;
}

/// Whether the error is the word of the modem or of the network on the message itself. That the
/// network answered too late is not.
bool isVerdict(const QString &errorName)
{
    const QString errors = modemManager + u".Error."_s;
    return (errorName.startsWith(errors + u"Message."_s) &&
            errorName != errors + u"Message.NetworkTimeout"_s) ||
           errorName.startsWith(errors + u"MobileEquipment."_s);
}

/// "erreur 21" for the networks' own codes, else the daemon's words.
QString reason(const QDBusMessage &error)
{
    static const QRegularExpression code(u"Unknown message error: (\\d+)"_s);
    const auto found = code.match(error.errorMessage());
    return found.hasMatch() ? u"erreur "_s + found.captured(1) : error.errorMessage();
}

/// What became of a message whose submission ended in the error.
TransportFailure submissionFailure(const QDBusMessage &error, int parts)
{
    if (isUnauthorized(error))
        return {hasNoRight};
    if (!isVerdict(error.errorName()))
        return {noAnswer, Fate::perhapsSent};
    if (parts > 1)
        return {partlySent.arg(reason(error)), Fate::perhapsSent};
    return {isRefused.arg(reason(error))};
}

TransportFailure orderFailure(const QDBusMessage &error)
{
    return {isUnauthorized(error) ? hasNoRight : daemonRefuses.arg(reason(error))};
}

} // namespace

ModemTransport::ModemTransport(const QDBusConnection &bus, QString identifier, Limits limits)
    : m_daemon(bus, modemManager), m_identifier(std::move(identifier)), m_limits(limits)
{
}

TransportResult ModemTransport::sendText(MessagesService, const QString &handle,
                                         const QString &text)
{
    if (auto unfit = unfitForSms(handle, text))
        return unfit;
    Modem modem;
    if (auto failure = makeReady(modem))
        return failure;
    return submit(modem, handle, text);
}

TransportResult ModemTransport::fileRefusal(MessagesService, const QString &) const
{
    return TransportFailure{takesNoFile};
}

TransportResult ModemTransport::sendFile(MessagesService, const QString &, const QString &)
{
    // A script sends the text first: whoever sent a file after it knows better than to repeat it.
    return TransportFailure{takesNoFile, Fate::perhapsSent};
}

TransportResult ModemTransport::find(Modem &modem) const
{
    const QDBusMessage answer = m_daemon.call({modemRoot, objectManager, u"GetManagedObjects"_s});
    if (isError(answer))
        return TransportFailure{daemonIsGone};
    const std::vector<Modem> modems = readModems(answer);
    const auto found = std::ranges::find(modems, m_identifier, &Modem::identifier);
    if (found == modems.end())
        return TransportFailure{isUnplugged};
    modem = *found;
    return {};
}

/// Wakes a modem that is asleep, and gives it the time to find its network.
TransportResult ModemTransport::makeReady(Modem &modem) const
{
    if (auto failure = find(modem))
        return failure;
    if (auto lasting = lastingObstacle(modem))
        return TransportFailure{lasting};
    if (modem.isAsleep()) {
        const QDBusMessage answer =
            m_daemon.call({modem.path, modemInterface, u"Enable"_s, {true}}, enableLimit);
        if (isError(answer))
            return orderFailure(answer);
    }
    QDeadlineTimer patience(m_limits.registration);
    do {
        if (auto failure = find(modem))
            return failure;
        if (modem.isRegistered() || modem.isDenied() || lastingObstacle(modem))
            break;
        QThread::msleep(glance);
    } while (!patience.hasExpired());
    const std::optional<QString> why = obstacle(modem);
    return why ? TransportResult(TransportFailure{why}) : std::nullopt;
}

TransportResult ModemTransport::submit(const Modem &modem, const QString &handle,
                                       const QString &text) const
{
    const QVariantMap message{{u"number"_s, handle}, {u"text"_s, text}};
    const QDBusMessage created =
        m_daemon.call({modem.path, messagingInterface, u"Create"_s, {message}});
    if (isError(created))
        return orderFailure(created);
    const auto sms = qvariant_cast<QDBusObjectPath>(created.arguments().value(0));
    const int parts = smsLength(text).parts;
    const QDBusMessage sent =
        m_daemon.call({sms.path(), smsInterface, u"Send"_s}, m_limits.part * parts);
    // The daemon keeps every message until it is told not to.
    m_daemon.ask({modem.path, messagingInterface, u"Delete"_s, {QVariant::fromValue(sms)}});
    return isError(sent) ? TransportResult(submissionFailure(sent, parts)) : std::nullopt;
}

} // namespace quenoria
