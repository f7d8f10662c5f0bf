#include "platform/linux/mail_carrier.h"

#include "platform/linux/mail_program.h"

namespace quenoria {

bool MailCarrier::isSetUp() const
{
    return m_settings.road() == MailRoad::mailbox ? m_settings.account().isComplete()
                                                  : mailProgram().has_value();
}

TransportResult MailCarrier::send(const OutgoingMessage &message)
{
    return m_settings.road() == MailRoad::mailbox ? m_mailbox.send(message)
                                                  : m_mailProgram.send(message);
}

TransportResult MailCarrier::showDraft(const OutgoingMessage &message)
{
    return m_mailProgram.showDraft(message);
}

} // namespace quenoria
