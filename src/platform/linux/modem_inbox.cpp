#include "platform/linux/modem_inbox.h"

#include "platform/linux/bus_answer.h"
#include "platform/linux/modem.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr uint completelyReceived = 3;

/// Such a message may answer one whose send is not recorded yet: it is asked about again.
bool isRecent(const QDateTime &stamp)
{
    constexpr int hour = 3600;
    return stamp.isValid() && stamp > QDateTime::currentDateTimeUtc().addSecs(-hour);
}

} // namespace

ModemInbox::ModemInbox(BusService daemon, MayRead mayRead)
    : m_daemon(std::move(daemon)), m_mayRead(std::move(mayRead))
{
}

void ModemInbox::read(const QString &modemPath)
{
    whenAnswered(m_daemon.ask({modemPath, messagingInterface, u"List"_s}), this,
                 [this](const QDBusMessage &answer) {
                     const auto paths =
                         qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().value(0));
                     for (const QDBusObjectPath &path : paths)
                         readMessage(path.path());
                 });
}

void ModemInbox::get(const QString &path, const QString &property,
                     const std::function<void(const QVariant &)> &answered)
{
    whenAnswered(m_daemon.ask({path, propertiesInterface, u"Get"_s, {smsInterface, property}}),
                 this, [answered](const QDBusMessage &answer) {
                     answered(answer.arguments().value(0).value<QDBusVariant>().variant());
                 });
}

void ModemInbox::readMessage(const QString &path)
{
    if (m_seen.contains(path))
        return;
    get(path, u"State"_s, [this, path](const QVariant &state) {
        if (state.toUInt() != completelyReceived || m_seen.contains(path))
            return;
        m_seen << path;
        readSender(path);
    });
}

void ModemInbox::readSender(const QString &path)
{
    get(path, u"Number"_s, [this, path](const QVariant &number) {
        get(path, u"Timestamp"_s, [this, path, number](const QVariant &time) {
            const auto stamp = QDateTime::fromString(time.toString(), Qt::ISODate);
            const Instant date{std::chrono::milliseconds(stamp.toMSecsSinceEpoch())};
            if (stamp.isValid() && m_mayRead(number.toString(), date))
                readText(path, number.toString(), date);
            else if (isRecent(stamp))
                m_seen.remove(path);
        });
    });
}

void ModemInbox::readText(const QString &path, const QString &number, Instant date)
{
    get(path, u"Text"_s, [this, number, date](const QVariant &text) {
        Q_EMIT received({number, text.toString(), date});
    });
}

} // namespace quenoria
