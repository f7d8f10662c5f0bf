#include "platform/demo/demo_sharing.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

DemoCompose::Keep keepSms(Outbox &outbox)
{
    return [&outbox](const Composition &sms) {
        return outbox.file(FiledSms{u"SMS préparé"_s, sms.recipients.join(u", "_s), sms.body,
                                    sms.file.toLocalFile()});
    };
}

DemoCompose::Keep keepEmail(Outbox &outbox)
{
    return [&outbox](const Composition &email) {
        return outbox.file(OutgoingMessage{
            true, email.subject, email.body, email.recipients, {email.file.toLocalFile()}});
    };
}

} // namespace

void DemoCompose::perform(const Composition &composition)
{
    if (const TransportResult failure = m_keep(composition))
        m_log.write(u"Message de démonstration perdu : "_s + failure->message.value_or(QString()));
}

DemoSharing::DemoSharing(Outbox &outbox, SystemLog &log)
    : m_message(keepSms(outbox), log), m_email(keepEmail(outbox), log)
{
}

} // namespace quenoria
