#include "platform/linux/phone_road.h"

#include "platform/linux/bus_answer.h"
#include "platform/linux/phone_transport.h"

#include <QDBusArgument>
#include <QDebug>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString road = u"Le numéro, le texte et le fichier vont au téléphone par le réseau local, "
                     "chiffrés ; le téléphone les envoie avec son forfait."_s;
const QString anyPhone = u"Téléphone Android"_s;
const QString isReady = u"Prêt."_s;
const QString isUnreachable = u"Le téléphone n’est pas joignable."_s;
const QString mayNotSend = u"Le téléphone n’autorise pas KDE Connect à envoyer des SMS."_s;
const QString noPhone = u"Aucun téléphone n’est associé dans KDE Connect."_s;
const QString isStopped = u"KDE Connect n’est pas en marche."_s;
const QString isNotInstalled = u"KDE Connect, qui parle aux téléphones, n’est pas installé."_s;
const QString isLooking = u"Recherche…"_s;

} // namespace

PhoneRoad::PhoneRoad(const QDBusConnection &sessionBus) : m_daemon(sessionBus, kdeConnect) {}

std::shared_ptr<MessagesTransport> PhoneRoad::transport(const QString &device) const
{
    return std::make_shared<PhoneTransport>(m_daemon.bus(), device);
}

void PhoneRoad::watch()
{
    if (m_presence)
        return;
    m_presence = std::make_unique<ServicePresence>(m_daemon);
    connect(m_presence.get(), &ServicePresence::changed, this, &PhoneRoad::look);
    bool isHeard = true;
    const auto follow = [this, &isHeard](const QString &interface, const QString &signal) {
        isHeard = m_daemon.listen(interface, signal, this, SLOT(look())) && isHeard;
    };
    follow(phonesInterface, u"deviceListChanged"_s);
    for (const char16_t *signal :
         {u"reachableChanged", u"pluginsChanged", u"trustedChanged", u"pairStateChanged"})
        follow(phoneInterface, QString::fromUtf16(signal));
    if (!isHeard && m_daemon.bus().isConnected())
        qWarning() << "KDE Connect’s announcements cannot be heard";
}

void PhoneRoad::look()
{
    const int look = ++m_lookCount;
    const BusOrder paired{phonesPath, phonesInterface, u"devices"_s, {false, true}};
    whenAnswered(m_daemon.ask(paired), this, [this, look](const QDBusMessage &answer) {
        if (look == m_lookCount)
            describe(answer.type() == QDBusMessage::ReplyMessage
                         ? answer.arguments().value(0).toStringList()
                         : QStringList());
    });
}

void PhoneRoad::describe(const QStringList &devices)
{
    m_phones.clear();
    for (const QString &device : devices) {
        const BusOrder all{phonePath(device), propertiesInterface, u"GetAll"_s, {phoneInterface}};
        whenAnswered(m_daemon.ask(all), this,
                     [this, device, look = m_lookCount](const QDBusMessage &answer) {
                         if (look != m_lookCount)
                             return;
                         addPhone(device, qdbus_cast<QVariantMap>(answer.arguments().value(0)));
                     });
    }
    Q_EMIT changed();
}

void PhoneRoad::addPhone(const QString &device, const QVariantMap &properties)
{
    const QStringList plugins = properties.value(u"supportedPlugins"_s).toStringList();
    m_phones.push_back({device, properties.value(u"name"_s).toString(),
                        properties.value(u"isReachable"_s).toBool(),
                        plugins.contains(phoneSmsPlugin)});
    std::ranges::sort(m_phones, {}, &Phone::device);
    if (m_mayRead && device == m_heardDevice)
        askForMessages();
    Q_EMIT changed();
}

Carrier PhoneRoad::carrier(const Phone &phone)
{
    const bool isAble = phone.isReachable && phone.maySend;
    return {.id = u"telephone:"_s + phone.device,
            .name = phone.name.isEmpty() ? anyPhone : phone.name,
            .state = isAble ? CarrierState::ready : CarrierState::unavailable,
            .words = isAble              ? isReady
                     : phone.isReachable ? mayNotSend
                                         : isUnreachable,
            .command = {},
            .road = road};
}

std::vector<Carrier> PhoneRoad::found() const
{
    using enum ServicePresence::State;
    const auto none = [](CarrierState state, const QString &words, const QString &command = {}) {
        return std::vector{Carrier{{}, anyPhone, state, words, command, road}};
    };
    const auto presence = m_presence ? m_presence->state() : unknown;
    if (presence == unknown)
        return none(CarrierState::unavailable, isLooking);
    if (presence == notInstalled)
        return none(CarrierState::notInstalled, isNotInstalled, u"sudo apt install kdeconnect"_s);
    if (presence == stopped)
        return none(CarrierState::unavailable, isStopped, u"kdeconnect-cli --list-devices"_s);
    if (m_phones.empty())
        return none(CarrierState::unavailable, noPhone);
    std::vector<Carrier> carriers;
    std::ranges::transform(m_phones, std::back_inserter(carriers), carrier);
    return carriers;
}

/// A telephone has no card to unlock from here.
void PhoneRoad::unlock(const QString & /*device*/, const QString & /*pin*/)
{
    Q_EMIT pinAnswered({});
}

void PhoneRoad::listen(const QString &device, const MayRead &mayRead)
{
    const bool wasListening = bool(m_mayRead);
    m_heardDevice = device;
    m_mayRead = mayRead;
    m_conversations.clear();
    if (!mayRead)
        return;
    if (!wasListening && !(m_daemon.listen(conversationsInterface, u"conversationCreated"_s, this,
                                           SLOT(hear(QDBusVariant, QDBusMessage))) &&
                           m_daemon.listen(conversationsInterface, u"conversationUpdated"_s, this,
                                           SLOT(hear(QDBusVariant, QDBusMessage)))))
        qWarning() << "KDE Connect’s messages cannot be heard";
    watch();
    askForMessages();
}

/// The last message of each conversation: those that KDE Connect knows, which it does not announce
/// again, and those that the telephone knows. From then on it announces what it receives.
void PhoneRoad::askForMessages()
{
    const QString phone = phonePath(m_heardDevice);
    const BusOrder known{phone, conversationsInterface, u"activeConversations"_s};
    whenAnswered(m_daemon.ask(known), this, [this](const QDBusMessage &answer) {
        const auto messages = qdbus_cast<QVariantList>(answer.arguments().value(0));
        for (const QVariant &message : messages)
            take(message);
    });
    m_daemon.ask({phone, conversationsInterface, u"requestAllConversationThreads"_s});
}

/// What came before the last message.
void PhoneRoad::askForConversation(qint64 conversation)
{
    constexpr int first = 0, count = 20;
    if (m_conversations.contains(conversation))
        return;
    m_conversations.insert(conversation);
    m_daemon.ask({phonePath(m_heardDevice),
                  conversationsInterface,
                  u"requestConversation"_s,
                  {conversation, first, count}});
}

void PhoneRoad::hear(const QDBusVariant &announced, const QDBusMessage &signal)
{
    if (signal.path() == phonePath(m_heardDevice))
        take(announced.variant());
}

void PhoneRoad::take(const QVariant &announced)
{
    const std::optional<PhoneMessage> message = readPhoneMessage(announced);
    if (!m_mayRead || !message || message->type != PhoneMessage::received ||
        message->numbers.isEmpty())
        return;
    const QString &number = message->numbers.constFirst();
    const Instant date{std::chrono::milliseconds(message->date)};
    if (!m_mayRead(number, date))
        return;
    Q_EMIT received({number, message->text, date});
    askForConversation(message->conversation);
}

} // namespace quenoria
