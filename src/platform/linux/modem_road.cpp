#include "platform/linux/modem_road.h"

#include "platform/linux/bus_answer.h"
#include "platform/linux/modem_inbox.h"
#include "platform/linux/modem_transport.h"

#include <QDebug>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString road = u"Le numéro et le texte passent par la carte SIM du modem et son opérateur, "
                     "sans passer par Internet."_s;
const QString anyModem = u"Modem ou clé 4G"_s;
const QString isReady = u"Prêt."_s;
const QString isAsleep = u"Prêt : il se réveillera au premier envoi."_s;
const QString noModem = u"Aucun modem n’est branché."_s;
const QString isStopped = u"ModemManager n’est pas en marche."_s;
const QString isNotInstalled = u"ModemManager, qui parle aux modems, n’est pas installé."_s;
const QString isLooking = u"Recherche…"_s;
const QString pinRefused = u"La carte SIM a refusé ce code PIN."_s;
const QString pinUnanswered = u"Le modem n’a pas pris le code PIN (%1)."_s;
const QString isGone = u"Le modem n’est pas branché."_s;
const QString maysNot = u"Ce compte n’a pas le droit de déverrouiller le modem."_s;

constexpr std::chrono::milliseconds pinLimit{60'000};

QString words(const Modem &modem, const std::optional<QString> &obstacle)
{
    if (!obstacle)
        return modem.isAsleep() ? isAsleep : isReady;
    if (!modem.asksForPin() || !modem.pinTries)
        return *obstacle;
    return *obstacle + u" Il reste %1 essai%2."_s.arg(*modem.pinTries)
                           .arg(*modem.pinTries > 1 ? u"s"_s : u""_s);
}

PinAnswer pinAnswer(const QDBusMessage &answer)
{
    using enum PinAnswer::Kind;
    if (answer.type() != QDBusMessage::ErrorMessage)
        return {taken};
    const QString error = answer.errorName();
    if (error.endsWith(u".Unauthorized"_s))
        return {failed, maysNot};
    if (error.endsWith(u".IncorrectPassword"_s) || error.endsWith(u".SimPuk"_s))
        return {wrong, pinRefused};
    return {failed, pinUnanswered.arg(answer.errorMessage())};
}

Carrier carrier(const Modem &modem)
{
    const std::optional<QString> why = modem.isAsleep() ? lastingObstacle(modem) : obstacle(modem);
    return {.id = u"modem:"_s + modem.identifier,
            .name = modem.name.isEmpty() ? anyModem : modem.name,
            .state = !why                 ? CarrierState::ready
                     : modem.asksForPin() ? CarrierState::asksForPin
                                          : CarrierState::unavailable,
            .words = words(modem, why),
            .command = {},
            .road = road,
            .pinTries = modem.pinTries};
}

} // namespace

ModemRoad::ModemRoad(const QDBusConnection &systemBus) : m_daemon(systemBus, modemManager) {}

ModemRoad::~ModemRoad() = default;

std::shared_ptr<MessagesTransport> ModemRoad::transport(const QString &device) const
{
    return std::make_shared<ModemTransport>(m_daemon.bus(), device);
}

void ModemRoad::watch()
{
    if (m_presence)
        return;
    m_presence = std::make_unique<ServicePresence>(m_daemon);
    connect(m_presence.get(), &ServicePresence::changed, this, [this] {
        openInbox(); // another daemon gives its messages the paths of the last one
        look();
    });
    const bool isHeard =
        m_daemon.listen(objectManager, u"InterfacesAdded"_s, this, SLOT(look())) &&
        m_daemon.listen(objectManager, u"InterfacesRemoved"_s, this, SLOT(look())) &&
        m_daemon.listen(propertiesInterface, u"PropertiesChanged"_s, this, SLOT(look()));
    if (!isHeard && m_daemon.bus().isConnected())
        qWarning() << "ModemManager’s announcements cannot be heard";
}

/// Asks anew for everything: an announcement only tells that something is another.
void ModemRoad::look()
{
    m_mustAskAgain = m_isAsking;
    if (m_isAsking)
        return;
    m_isAsking = true;
    whenAnswered(m_daemon.ask({modemRoot, objectManager, u"GetManagedObjects"_s}), this,
                 [this](const QDBusMessage &answer) { take(answer); });
}

void ModemRoad::take(const QDBusMessage &answer)
{
    m_isAsking = false;
    m_modems = readModems(answer);
    Q_EMIT changed();
    if (m_inbox && modem(m_heardDevice))
        m_inbox->read(modem(m_heardDevice)->path);
    if (m_mustAskAgain)
        look();
}

const Modem *ModemRoad::modem(const QString &identifier) const
{
    const auto found = std::ranges::find(m_modems, identifier, &Modem::identifier);
    return found == m_modems.end() ? nullptr : &*found;
}

std::vector<Carrier> ModemRoad::found() const
{
    using enum ServicePresence::State;
    const auto none = [](CarrierState state, const QString &words, const QString &command = {}) {
        return std::vector{Carrier{{}, anyModem, state, words, command, road}};
    };
    const auto presence = m_presence ? m_presence->state() : unknown;
    if (presence == unknown)
        return none(CarrierState::unavailable, isLooking);
    if (presence == notInstalled)
        return none(CarrierState::notInstalled, isNotInstalled, u"sudo apt install modemmanager"_s);
    if (presence == stopped)
        return none(CarrierState::unavailable, isStopped, u"sudo systemctl start ModemManager"_s);
    if (m_modems.empty())
        return none(CarrierState::unavailable, noModem);
    std::vector<Carrier> carriers;
    std::ranges::transform(m_modems, std::back_inserter(carriers), carrier);
    return carriers;
}

void ModemRoad::unlock(const QString &device, const QString &pin)
{
    const Modem *locked = modem(device);
    if (!locked) {
        Q_EMIT pinAnswered({PinAnswer::Kind::failed, isGone});
        return;
    }
    whenAnswered(m_daemon.ask({locked->sim, simInterface, u"SendPin"_s, {pin}}, pinLimit), this,
                 [this](const QDBusMessage &answer) { Q_EMIT pinAnswered(pinAnswer(answer)); });
}

void ModemRoad::listen(const QString &device, const MayRead &mayRead)
{
    m_heardDevice = device;
    m_mayRead = mayRead;
    openInbox();
    if (!mayRead)
        return;
    watch();
    look();
}

void ModemRoad::openInbox()
{
    m_inbox.reset();
    if (!m_mayRead)
        return;
    m_inbox = std::make_unique<ModemInbox>(m_daemon, m_mayRead);
    connect(m_inbox.get(), &ModemInbox::received, this, &SmsRoad::received);
}

} // namespace quenoria
