#include "platform/linux/sms_carriers.h"

#include <QHash>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString choiceKey = u"EnvoiSMSTransport"_s;
const QString noService = u"Aucun service Messages actif"_s;

QString storedChoice(const Preferences &preferences)
{
    return preferences.text(choiceKey).value_or(QString());
}

/// Two devices of one model also tell the end of what sets them apart: "Huawei E3372 (…7526)".
void tellApart(std::vector<Carrier> &carriers)
{
    constexpr qsizetype told = 4;
    QHash<QString, int> named;
    for (const Carrier &each : carriers)
        ++named[each.name];
    for (Carrier &each : carriers) {
        if (each.id.isEmpty() || named.value(each.name) == 1)
            continue;
        QString end = each.id;
        end.remove(u'_'); // around the identifiers of telephones
        each.name += u" (…%1)"_s.arg(end.right(told));
    }
}

TransportResult sendAll(MessagesTransport &transport, const Composition &message)
{
    const QString number = message.recipients.value(0);
    const QString file = message.file.toLocalFile();
    if (!file.isEmpty()) {
        if (auto refusal = transport.fileRefusal(MessagesService::SMS, file))
            return refusal;
    }
    if (!message.body.isEmpty()) {
        if (auto failure = transport.sendText(MessagesService::SMS, number, message.body))
            return failure;
    }
    return file.isEmpty() ? std::nullopt : transport.sendFile(MessagesService::SMS, number, file);
}

} // namespace

SmsCarriers::SmsCarriers(Preferences &preferences, Secrets &keyring, Roads roads)
    : m_preferences(preferences), m_pins(preferences, keyring), m_roads(std::move(roads))
{
    for (const auto &road : m_roads) {
        connect(road.get(), &SmsRoad::changed, this, &SmsCarriers::giveKeptPin);
        connect(road.get(), &SmsRoad::changed, this, &Carriers::changed);
        connect(road.get(), &SmsRoad::pinAnswered, this, &SmsCarriers::takePinAnswer);
        connect(road.get(), &SmsRoad::received, this, &Carriers::received);
    }
    takeChoice();
    if (SmsRoad *road = resolve(chosen()).road; road && m_pins.has(chosen()))
        road->watch(); // its card may ask for the PIN at any moment
}

void SmsCarriers::watch()
{
    for (const auto &road : m_roads)
        road->watch();
}

std::vector<Carrier> SmsCarriers::found() const
{
    std::vector<Carrier> all;
    for (const auto &road : m_roads)
        std::ranges::move(road->found(), std::back_inserter(all));
    tellApart(all);
    for (Carrier &each : all)
        each.keepsPin = !each.id.isEmpty() && m_pins.has(each.id);
    const QString choice = chosen();
    if (!choice.isEmpty() && std::ranges::find(all, choice, &Carrier::id) == all.end())
        all.push_back({.id = choice,
                       .name = u"Choix actuel"_s,
                       .state = CarrierState::unavailable,
                       .words = u"Il n’est pas là en ce moment."_s,
                       .command = {},
                       .road = {}});
    return all;
}

QString SmsCarriers::chosen() const { return storedChoice(m_preferences); }

void SmsCarriers::choose(const QString &id)
{
    if (id == chosen())
        return;
    const MayRead mayRead = std::exchange(m_mayRead, nullptr);
    listen(nullptr);
    m_preferences.setText(choiceKey, id);
    takeChoice();
    listen(mayRead);
    m_hasOffered = false;
    giveKeptPin();
    Q_EMIT changed();
}

SmsCarriers::Choice SmsCarriers::resolve(const QString &id) const
{
    for (const auto &road : m_roads) {
        const QString start = road->kind() + u':';
        if (id.startsWith(start))
            return {road.get(), id.mid(start.size())};
    }
    return {};
}

void SmsCarriers::takeChoice()
{
    const auto [road, device] = resolve(storedChoice(m_preferences));
    const std::lock_guard lock(m_mutex);
    m_transport = road ? road->transport(device) : nullptr;
}

std::shared_ptr<MessagesTransport> SmsCarriers::transport() const
{
    const std::lock_guard lock(m_mutex);
    return m_transport;
}

bool SmsCarriers::takesFiles() const
{
    const SmsRoad *road = resolve(chosen()).road;
    return !road || road->takesFiles();
}

QString SmsCarriers::handover() const
{
    const SmsRoad *road = resolve(chosen()).road;
    return road ? road->handover() : QString();
}

void SmsCarriers::unlock(const QString &id, const QString &pin, PinUse use)
{
    give({id, pin, use});
}

void SmsCarriers::forgetPin(const QString &id)
{
    m_pins.forget(id);
    Q_EMIT changed();
}

std::optional<Carrier> SmsCarriers::lockedChoice() const
{
    const std::vector<Carrier> all = found();
    const auto choice = std::ranges::find(all, chosen(), &Carrier::id);
    const bool asks = choice != all.end() && choice->state == CarrierState::asksForPin;
    return asks ? std::optional(*choice) : std::nullopt;
}

/// Once each time that the chosen carrier comes to ask for it, and never the last tries but one: a
/// card that lost some of them was perhaps exchanged for another.
void SmsCarriers::giveKeptPin()
{
    constexpr uint allTries = 3;
    const std::optional<Carrier> asking = lockedChoice();
    const bool hadOffered = std::exchange(m_hasOffered, asking.has_value());
    if (!asking || hadOffered || !asking->keepsPin ||
        asking->pinTries.value_or(allTries) < allTries)
        return;
    m_pins.read(asking->id).then(this, [this, id = asking->id](const std::optional<QString> &pin) {
        const std::optional<Carrier> still = lockedChoice();
        if (pin && still && still->id == id)
            give({id, *pin, PinUse::kept});
    });
}

/// One at a time, since each wrong one brings the card nearer to its block.
void SmsCarriers::give(const GivenPin &given)
{
    const auto [road, device] = resolve(given.carrier);
    if (!road || m_given)
        return;
    m_given = given;
    road->unlock(device, given.pin);
}

void SmsCarriers::takePinAnswer(const PinAnswer &answer)
{
    const GivenPin given = std::exchange(m_given, std::nullopt).value_or(GivenPin());
    const bool isTaken = answer.kind == PinAnswer::Kind::taken;
    if (answer.kind == PinAnswer::Kind::wrong)
        m_pins.forget(given.carrier);
    Q_EMIT unlocked(isTaken ? std::nullopt : std::optional(answer.words));
    if (isTaken)
        settle(given);
    Q_EMIT changed();
}

/// What the user said is to become of a PIN that was right.
void SmsCarriers::settle(const GivenPin &taken)
{
    if (taken.use == PinUse::once)
        return m_pins.forget(taken.carrier);
    if (m_pins.has(taken.carrier))
        return;
    m_pins.keep(taken.carrier, taken.pin).then(this, [this](bool isKept) {
        Q_EMIT pinKept(isKept);
        Q_EMIT changed();
    });
}

QFuture<TransportResult> SmsCarriers::send(const Composition &message)
{
    const auto sendThrough = [transport = transport(), message]() -> TransportResult {
        return transport ? sendAll(*transport, message) : TransportFailure{noService};
    };
    return QtConcurrent::run(sendThrough);
}

void SmsCarriers::listen(const MayRead &mayRead)
{
    m_mayRead = mayRead;
    if (const auto [road, device] = resolve(chosen()); road)
        road->listen(device, mayRead);
}

bool SmsCarriers::offers(MessagesService service) const
{
    return service == MessagesService::SMS && transport();
}

TransportResult SmsCarriers::sendText(MessagesService service, const QString &handle,
                                      const QString &text)
{
    const auto carrier = transport();
    return carrier ? carrier->sendText(service, handle, text) : TransportFailure{noService};
}

TransportResult SmsCarriers::fileRefusal(MessagesService service, const QString &path) const
{
    const auto carrier = transport();
    return carrier ? carrier->fileRefusal(service, path) : TransportFailure{noService};
}

TransportResult SmsCarriers::sendFile(MessagesService service, const QString &handle,
                                      const QString &path)
{
    const auto carrier = transport();
    return carrier ? carrier->sendFile(service, handle, path)
                   : TransportFailure{noService, Fate::perhapsSent};
}

} // namespace quenoria
