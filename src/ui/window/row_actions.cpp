#include "ui/window/row_actions.h"

#include "ui/channels/channel_descriptor.h"

using namespace Qt::StringLiterals;

namespace quenoria {

RowActions::RowActions(SendDesk &desk, const Switches &switches, QObject *parent)
    : QObject(parent), m_desk(desk), m_switches(switches)
{
}

void RowActions::perform(RowAction action, const QString &contactId)
{
    ProspectStore &store = m_desk.store();
    const Prospect *found = store.prospect(contactId);
    if (!found)
        return;
    const Prospect contact = *found; // what follows may change the list that it comes from
    switch (action.kind) {
    case RowAction::sendMessage:
        return send(action.channel, contact);
    case RowAction::chooseAttachment:
        return store.chooseAttachment(contact);
    case RowAction::removeAttachment:
        return store.removeAttachment(contact);
    case RowAction::showHistory:
        Q_EMIT historyRequested(contactId);
        return;
    }
}

void RowActions::send(Channel channel, const Prospect &contact)
{
    // A second click finds the first one's message under way, or its doubt.
    if (m_desk.isUnderWay(channel, contact.id) || m_desk.raiseDoubt(channel, contact.id))
        return;
    if (channelDescriptor(channel).isAutomatic(m_switches))
        sendAutomatically(channel, contact);
    else
        prepare(channel, contact);
}

void RowActions::prepare(Channel channel, const Prospect &contact)
{
    if (const Refusal refusal = m_desk.prepare(channel, contact, m_switches.freeProPlan()))
        Q_EMIT failed(channelDescriptor(channel).impossible, *refusal, {});
}

QCoro::Task<> RowActions::sendAutomatically(Channel channel, Prospect contact)
{
    Q_EMIT sendStarted(contact.label);
    const TaskScope::Lease lease = m_tasks.lease();
    const QCoro::Task<SendOutcome> sending =
        m_desk.order(channel, contact.id, m_switches.freeProPlan());
    const SendOutcome outcome = co_await sending;
    if (!lease.isAbandoned())
        tell(outcome, contact.label);
}

/// A doubt is asked elsewhere.
void RowActions::tell(const SendOutcome &outcome, const QString &contactLabel)
{
    if (std::holds_alternative<Sent>(outcome))
        Q_EMIT sent(contactLabel);
    else
        Q_EMIT notSent();
    const auto *refused = std::get_if<Refused>(&outcome);
    if (refused && refused->message)
        Q_EMIT failed(u"Envoi automatique impossible"_s, *refused->message, refused->carrierWords);
}

} // namespace quenoria
