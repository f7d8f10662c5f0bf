#include "tour/rehearsal.h"

#include "messaging/send_desk.h"
#include "ui/kit/switches.h"
#include "ui/window/content_view.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString sms = u"sms"_s;
const QString email = u"email"_s;
const QString both = u"tout"_s;
const QString text = u"Bonjour,\n\nCeci est une répétition."_s; ///< without blanks to ask about

std::vector<Prospect> notSentTo(const ProspectStore &store, Channel channel)
{
    std::vector<Prospect> contacts = store.allProspects();
    std::erase_if(contacts, [&](const Prospect &contact) {
        return !(channel == Channel::sms ? store.sendHistory(contact) : store.emailHistory(contact))
                    .empty();
    });
    return contacts;
}

} // namespace

const QStringList &rehearsalNames()
{
    static const QStringList names{sms, email, both};
    return names;
}

void rehearse(ContentView &window, SendDesk &desk, Switches &switches, const QString &name)
{
    ProspectStore &store = desk.store();
    store.updateMessage(ProspectStore::defaultMessageID, u"1er envoi"_s, text);
    store.updateEmailTemplate(ProspectStore::defaultEmailTemplateID, u"1er envoi e-mail"_s,
                              u"Répétition"_s, text);
    switches.setAutoValidateSMS(true);
    switches.setAutoValidateEmail(true);
    for (const Prospect &contact : notSentTo(store, Channel::sms))
        store.setSelectedForSending(true, contact);
    const std::vector<Prospect> byEmail = notSentTo(store, Channel::email);
    for (const Prospect &contact : byEmail) {
        store.setSelectedForEmailSending(true, contact);
        if (name == both)
            desk.order(Channel::email, contact.id, false).then([](const SendOutcome &) {});
    }
    window.openQueue(name == email ? Channel::email : Channel::sms);
}

} // namespace quenoria
