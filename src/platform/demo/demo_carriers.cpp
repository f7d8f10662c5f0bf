#include "platform/demo/demo_carriers.h"

#include <QFuture>

using namespace Qt::StringLiterals;

namespace quenoria {

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
