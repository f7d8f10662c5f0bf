#include "ui/window/row_actions.h"

#include "ui/kit/switches.h"

using namespace Qt::StringLiterals;

namespace quenoria {

RowActions::RowActions(ProspectStore &store, const Switches &switches, QObject *parent)
    : QObject(parent), m_store(store), m_switches(switches)
{
}

RowActions::~RowActions() { stopWaiting(); }

void RowActions::stopWaiting() { m_stop.request_stop(); }

void RowActions::perform(RowAction action, const QString &contactId)
{
    const Prospect *found = m_store.prospect(contactId);
    if (!found)
        return;
    const Prospect contact = *found; // what follows may change the list that it comes from
    switch (action) {
    case RowAction::sendSMS:
        return sendSMS(contact);
    case RowAction::sendEmail:
        return sendEmail(contact);
    case RowAction::chooseAttachment:
        return m_store.chooseAttachment(contact);
    case RowAction::removeAttachment:
        return m_store.removeAttachment(contact);
    case RowAction::showHistory:
        Q_EMIT historyRequested(contactId);
        return;
    }
}

void RowActions::sendSMS(const Prospect &contact)
{
    const bool freePro = m_switches.freeProPlan();
    if (m_switches.autoValidateSMS())
        return start(m_store.sendSMSAutomatically(contact, freePro, m_stop.get_token()), contact,
                     &ProspectStore::recordSentNow);
    if (const Refusal refusal = m_store.prepareSMS(contact, freePro))
        Q_EMIT failed(u"SMS impossible"_s, *refusal);
}

void RowActions::sendEmail(const Prospect &contact)
{
    if (m_switches.autoValidateEmail())
        return start(m_store.sendEmailAutomatically(contact), contact,
                     &ProspectStore::recordEmailSentNow);
    if (const Refusal refusal = m_store.prepareEmail(contact))
        Q_EMIT failed(u"E-mail impossible"_s, *refusal);
}

void RowActions::start(QCoro::Task<Refusal> send, const Prospect &contact, Record record)
{
    ++m_sending;
    Q_EMIT sendStarted(contact.label);
    follow(std::move(send), m_store, contact, record, this);
}

/// A message that left is recorded even if the window went away meanwhile.
QCoro::Task<> RowActions::follow(QCoro::Task<Refusal> send, ProspectStore &store, Prospect contact,
                                 Record record, QPointer<RowActions> self)
{
    const Refusal refusal = co_await send;
    if (!refusal)
        (store.*record)(contact);
    if (self)
        self->finish(refusal, contact.label);
}

void RowActions::finish(const Refusal &refusal, const QString &contactLabel)
{
    --m_sending;
    if (!refusal)
        Q_EMIT sent(contactLabel);
    else if (!m_stop.stop_requested())
        Q_EMIT failed(u"Envoi automatique impossible"_s, *refusal);
    if (m_sending == 0)
        Q_EMIT idle();
}

} // namespace quenoria
