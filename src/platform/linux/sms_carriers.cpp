#include "platform/linux/sms_carriers.h"

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

TransportResult sendAll(MessagesTransport &transport, const Composition &message)
{
    const QString number = message.recipients.value(0);
    const QString file = message.file.toLocalFile();
    if (!message.body.isEmpty()) {
        if (auto failure = transport.sendText(MessagesService::SMS, number, message.body))
            return failure;
    }
    return file.isEmpty() ? std::nullopt : transport.sendFile(MessagesService::SMS, number, file);
}

} // namespace

SmsCarriers::SmsCarriers(Preferences &preferences, Roads roads)
    : m_preferences(preferences), m_roads(std::move(roads))
{
    for (const auto &road : m_roads) {
        connect(road.get(), &SmsRoad::changed, this, &Carriers::changed);
        connect(road.get(), &SmsRoad::unlocked, this, &Carriers::unlocked);
        connect(road.get(), &SmsRoad::received, this, &Carriers::received);
    }
    takeChoice();
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

void SmsCarriers::unlock(const QString &id, const QString &pin)
{
    if (const auto [road, device] = resolve(id); road)
        road->unlock(device, pin);
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

TransportResult SmsCarriers::sendFile(MessagesService service, const QString &handle,
                                      const QString &path)
{
    const auto carrier = transport();
    return carrier ? carrier->sendFile(service, handle, path)
                   : TransportFailure{noService, Fate::perhapsSent};
}

} // namespace quenoria
