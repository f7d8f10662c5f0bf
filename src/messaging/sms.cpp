#include "messaging/channel_delivery.h"
#include "messaging/compose_url.h"
#include "messaging/hand_over.h"
#include "messaging/messages_script.h"
#include "messaging/refusals.h"
#include "model/contact_rules.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString stoppedSMS = u"Cet abonné a demandé à ne plus être destinataire de SMS."_s;
const QString noMobile = u"Aucun numéro de mobile n’est renseigné pour ce contact."_s;
const QString alreadyBusy =
    u"Un autre SMS automatique est déjà en cours. Attendez la fin de cet envoi."_s;
const QString invalidTestNumber = u"Saisissez un numéro de test valide."_s;
const QString noTemplate = u"Sélectionnez un modèle de message."_s;
const QString noMessagesService = u"Le service Messages n’est pas disponible sur ce Mac."_s;
const QString fileRefused = u"Ce fichier ne peut pas être joint à un message SMS/MMS."_s;
const QString notPrepared = u"Le message SMS n’a pas pu être préparé."_s;
const QString notOpened = u"Messages n’a pas pu être ouvert."_s;
const QString scriptNotCreated = u"L’envoi direct n’a pas pu être préparé dans Messages."_s;
const QString notConfirmed = u"Messages n’a pas confirmé l’envoi : "_s;
const QString notAuthorised = u"Messages n’a pas confirmé l’envoi. Vérifiez l’autorisation "
                              "Automatisation dans les Réglages Système."_s;
const QString logPrefix = u"Envoi SMS direct impossible : "_s;

constexpr int shortestTestNumber = 10;

SendOutcome smsOutcome(const ScriptOutcome &outcome, SystemLog &log)
{
    if (std::holds_alternative<ScriptDone>(outcome))
        return Sent{};
    const auto *error = std::get_if<ScriptError>(&outcome);
    if (!error)
        return Refused{scriptNotCreated};
    log.write(logPrefix + error->description);
    const QString message = error->message.value_or(QString()).trimmed();
    if (leavesDoubt(*error))
        return InDoubt{message};
    return Refused{message.isEmpty() ? notAuthorised : notConfirmed + message, QString()};
}

Refusal unreachable(const ProspectStore &store, const Prospect &prospect)
{
    if (store.isStopped(prospect))
        return stoppedSMS;
    if (prospect.phone.isEmpty())
        return noMobile;
    if (store.isServedByTwin(Channel::sms, prospect))
        return servedByTwin;
    if (store.attachmentName(prospect) && !store.attachmentURL(prospect))
        return attachmentGone;
    return {};
}

Refusal openSMS(const Platform &platform, const QString &phone, const QString &body,
                const std::optional<QUrl> &attachment)
{
    platform.pasteboard.setText(body);
    const QString handle = messagingHandle(phone);
    if (attachment) {
        ComposeService *messages = platform.sharing.composeMessage();
        if (!messages)
            return noMessagesService;
        const Composition composition{{handle}, {}, body, *attachment};
        if (!messages->canPerform(composition))
            return fileRefused;
        messages->perform(composition);
        return {};
    }
    const QueryItem item{u"body"_s, body};
    const QUrl url = composeUrl(u"sms"_s, handle, {&item, 1});
    if (!url.isValid())
        return notPrepared;
    if (!platform.workspace.openUrl(url))
        return notOpened;
    return {};
}

QCoro::Task<> waitForAutomaticSMSInterval(std::chrono::nanoseconds remainder, Clock &clock,
                                          std::stop_token stop)
{
    if (remainder == std::chrono::nanoseconds::zero())
        co_return;
    const QFuture<void> sleep = clock.sleep(remainder, stop);
    co_await sleep;
}

QCoro::Task<SendOutcome> sendSMSDirectlyThroughMessages(const Platform &platform, QString phone,
                                                        QString body,
                                                        std::optional<QUrl> attachment)
{
    const std::optional<QString> path =
        attachment ? std::optional(attachment->toLocalFile()) : std::nullopt;
    const QString source = messagesScript(messagingHandle(phone), body, path);
    SystemLog &log = platform.log; // the services outlive whoever sends
    const QFuture<ScriptOutcome> outcome = runScript(platform.scripts, source);
    const ScriptOutcome result = co_await outcome;
    co_return smsOutcome(result, log);
}

/// Asks nothing of the store once the carrier has its message.
QCoro::Task<SendOutcome> handOver(const StoreState &state, Prospect contact, bool freeProEnabled,
                                  HandOverGate gate)
{
    const ProspectStore &store = state.store;
    if (Refusal refusal = unreachable(store, contact))
        co_return Refused{refusal};
    // The number may have changed since the month was looked at.
    if (Refusal refusal = store.smsQuotaError(contact, freeProEnabled))
        co_return Refused{refusal};
    const std::optional<QUrl> file = store.attachmentURL(contact);
    const HandOver message{contact,
                           contact.phone,
                           {},
                           store.assignedMessage(contact).body,
                           file.value_or(QUrl()).toLocalFile()};
    if (Refusal refusal = gate ? gate(message) : std::nullopt)
        co_return Refused{refusal};
    const QCoro::Task<SendOutcome> sending =
        sendSMSDirectlyThroughMessages(state.platform, message.recipient, message.body, file);
    co_return co_await sending;
}

void finishAutomaticSMSWindowCleanup(Workspace &workspace)
{
    for (const QString &identifier : {u"com.apple.MobileSMS"_s, u"com.apple.iChat"_s})
        workspace.hideApplications(identifier);
    workspace.comeToFront();
}

} // namespace

Refusal ProspectStore::prepareSMS(const Prospect &prospect, bool freeProEnabled)
{
    if (Refusal refusal = unreachable(*this, prospect))
        return refusal;
    if (Refusal refusal = smsQuotaError(prospect, freeProEnabled))
        return refusal;
    return openSMS(m_state->platform, prospect.phone, assignedMessage(prospect).body,
                   attachmentURL(prospect));
}

Refusal ProspectStore::prepareTestSMS(const QString &phone, const QString &messageID)
{
    if (characterCount(normalizePhone(phone)) < shortestTestNumber)
        return invalidTestNumber;
    const MessageTemplate *found = m_state->channels.of<Channel::sms>().templates.find(
        [&messageID](const MessageTemplate &message) { return message.id == messageID; });
    if (!found)
        return noTemplate;
    const QString body = found->body;
    setTestNumber(phone);
    return openSMS(m_state->platform, phone, body, {});
}

QCoro::Task<SendOutcome> ProspectStore::sendSMSAutomatically(Prospect prospect, bool freeProEnabled,
                                                             std::stop_token stop,
                                                             HandOverGate gate)
{
    if (Refusal refusal = smsQuotaError(prospect, freeProEnabled))
        co_return Refused{refusal};
    if (m_state->automaticSMSBusy)
        co_return Refused{alreadyBusy};
    m_state->automaticSMSBusy = true;
    const TaskScope::Lease lease = m_state->tasks.lease();
    const QCoro::Task<> interval =
        waitForAutomaticSMSInterval(automaticSMSWait(), m_state->platform.clock, stop);
    co_await interval;
    if (lease.isAbandoned())
        co_return Abandoned{};
    const Prospect *now = this->prospect(prospect.id);
    SendOutcome outcome = Refused{};
    if (now && !stop.stop_requested()) {
        const QCoro::Task<SendOutcome> sending =
            handOver(*m_state, *now, freeProEnabled, std::move(gate));
        outcome = co_await sending;
    }
    if (lease.isAbandoned())
        co_return Abandoned{};
    if (std::holds_alternative<Sent>(outcome)) {
        finishAutomaticSMSWindowCleanup(m_state->platform.workspace);
        m_state->lastAutomaticSMSSentAt = m_state->platform.clock.now();
    }
    m_state->automaticSMSBusy = false;
    co_return outcome;
}

std::chrono::nanoseconds ProspectStore::automaticSMSWait() const
{
    if (!m_state->lastAutomaticSMSSentAt)
        return {};
    const std::chrono::nanoseconds elapsed =
        m_state->platform.clock.now() - *m_state->lastAutomaticSMSSentAt;
    // A clock that was set back must not make the queue wait for longer than the interval.
    return std::clamp(automaticSMSMinimumInterval - elapsed, std::chrono::nanoseconds::zero(),
                      automaticSMSMinimumInterval);
}

/// The store spaces automatic messages, and refuses one that is ordered during another.
ChannelDelivery smsDelivery()
{
    return {
        .prepare = [](ProspectStore &store, const Platform & /*platform*/, const Prospect &contact,
                      bool freeProEnabled) { return store.prepareSMS(contact, freeProEnabled); },
        .send =
            [](ProspectStore &store, Sending sending) {
                return store.sendSMSAutomatically(std::move(sending.contact),
                                                  sending.freeProEnabled, std::move(sending.stop),
                                                  std::move(sending.gate));
            }};
}

} // namespace quenoria
