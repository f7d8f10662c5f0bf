#include "platform/demo/demo_carriers.h"

#include <QFuture>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::chrono::seconds thought{2}; ///< by then the send is recorded

} // namespace

DemoCarriers::DemoCarriers(DemoMessages &messages, const Clock &clock)
    : m_messages(messages), m_clock(clock)
{
    messages.tellSent([this](const QString &handle) {
        const auto think = [this, handle] { answerLater(handle); };
        QMetaObject::invokeMethod(this, think, Qt::QueuedConnection);
    });
}

void DemoCarriers::answerLater(const QString &handle)
{
    QTimer::singleShot(thought, this, [this, handle] { answer(handle); });
}

void DemoCarriers::answer(const QString &handle)
{
    const Instant now = m_clock.now();
    if (m_hasAnswered || !m_mayRead || !m_mayRead(handle, now))
        return;
    m_hasAnswered = true;
    Q_EMIT received({handle, u"Stop svp"_s, now});
}

std::vector<Carrier> DemoCarriers::found() const
{
    return {{.id = chosen(),
             .name = u"Modem de démonstration"_s,
             .state = CarrierState::ready,
             .words = u"Prêt."_s,
             .command = {},
             .road = u"Rien ne quitte cet ordinateur : le message est classé dans un dossier."_s},
            {.id = u"demonstration:telephone"_s,
             .name = u"Téléphone de démonstration"_s,
             .state = CarrierState::unavailable,
             .words = u"Le téléphone n’est pas joignable."_s,
             .command = {},
             .road = u"Rien ne quitte cet ordinateur."_s}};
}

QString DemoCarriers::chosen() const { return u"demonstration:modem"_s; }

QString DemoCarriers::handover() const { return u"classé"_s; }

QFuture<TransportResult> DemoCarriers::send(const Composition &message)
{
    return QtFuture::makeReadyFuture(
        m_messages.sendText(MessagesService::SMS, message.recipients.value(0), message.body));
}

} // namespace quenoria
