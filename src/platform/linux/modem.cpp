#include "platform/linux/modem.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString asksForItsPin = u"La carte SIM du modem attend son code PIN."_s;
const QString needsPuk = u"La carte SIM du modem est bloquée (code PUK)."_s;
const QString isLockedOtherwise = u"Le modem est verrouillé."_s;
const QString hasNoSim = u"Le modem n’a pas de carte SIM."_s;
const QString isBroken = u"Le modem signale une panne."_s;
const QString hasNoMessaging = u"Ce modem n’envoie pas de SMS."_s;
const QString isSearching = u"Le modem n’est relié à aucun réseau mobile."_s;
const QString isRefused = u"Le réseau mobile refuse la carte SIM du modem."_s;

constexpr uint simMissing = 2;
constexpr uint pin = 2;
constexpr uint puk = 4;

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

Modem readModem(const QString &path, const Interfaces &interfaces)
{
    const QVariantMap properties = interfaces.value(modemInterface);
    Modem modem;
    modem.path = path;
    modem.identifier = properties.value(u"EquipmentIdentifier"_s).toString();
    modem.name = (properties.value(u"Manufacturer"_s).toString() + u' ' +
                  properties.value(u"Model"_s).toString())
                     .trimmed();
    modem.sim = qvariant_cast<QDBusObjectPath>(properties.value(u"Sim"_s)).path();
    modem.state = properties.value(u"State"_s).toInt();
    modem.failure = properties.value(u"StateFailedReason"_s).toUInt();
    modem.lock = properties.value(u"UnlockRequired"_s).toUInt();
    const auto tries = qdbus_cast<QMap<uint, uint>>(properties.value(u"UnlockRetries"_s));
    if (tries.contains(pin))
        modem.pinTries = tries.value(pin);
    modem.registration =
        interfaces.value(modemInterface + u".Modem3gpp"_s).value(u"RegistrationState"_s).toUInt();
    modem.hasMessaging = interfaces.contains(messagingInterface);
    return modem;
}

} // namespace

bool Modem::asksForPin() const { return isLocked() && lock == pin; }

std::vector<Modem> readModems(const QDBusMessage &answer)
{
    std::vector<Modem> modems;
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return modems;
    const auto objects = qdbus_cast<Objects>(answer.arguments().constFirst());
    for (auto each = objects.begin(); each != objects.end(); ++each) {
        if (each->contains(modemInterface))
            modems.push_back(readModem(each.key().path(), *each));
    }
    return modems;
}

std::optional<QString> lastingObstacle(const Modem &modem)
{
    if (modem.state < 0)
        return modem.failure == simMissing ? hasNoSim : isBroken;
    if (modem.asksForPin())
        return asksForItsPin;
    if (modem.isLocked())
        return modem.lock == puk ? needsPuk : isLockedOtherwise;
    return modem.hasMessaging ? std::nullopt : std::optional(hasNoMessaging);
}

std::optional<QString> obstacle(const Modem &modem)
{
    if (auto lasting = lastingObstacle(modem))
        return lasting;
    if (modem.isRegistered())
        return {};
    return modem.isDenied() ? isRefused : isSearching;
}

} // namespace quenoria
