#include "messaging/channel_delivery.h"
#include "messaging/compose_url.h"
#include "messaging/hand_over.h"
#include "messaging/line_ends.h"
#include "messaging/mail_script.h"
#include "messaging/refusals.h"
#include "model/contact_rules.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

#include <QCoroFuture>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString appleMail = u"com.apple.mail"_s;

const QString stoppedEmail = u"Ce contact a demandé à ne plus être destinataire de vos messages."_s;
const QString noAddress = u"Aucune adresse e-mail valide n’est renseignée pour ce contact."_s;
const QString appleMailNeeded = u"L’envoi automatique des e-mails nécessite Apple Mail comme "
                                "application de messagerie par défaut."_s;
const QString noEmailService = u"Le service de messagerie n’est pas disponible sur ce Mac."_s;
const QString fileRefused = u"Ce fichier ne peut pas être joint à cet e-mail."_s;
const QString notPrepared = u"L’e-mail n’a pas pu être préparé."_s;
const QString notOpened = u"L’application de messagerie n’a pas pu être ouverte."_s;
const QString immediateNotCreated = u"L’e-mail automatique n’a pas pu être préparé dans Mail."_s;
const QString draftNotCreated =
    u"Le brouillon avec pièce jointe n’a pas pu être préparé dans Mail."_s;
const QString notAuthorised =
    u"Autorisez Quenoria à contrôler Mail dans Réglages Système > Confidentialité et sécurité > "
    "Automatisation, puis recommencez."_s;
const QString logPrefix = u"Impossible de préparer la pièce jointe dans Mail : "_s;

/// What became of a script that Mail was told.
SendOutcome mailOutcome(const ScriptOutcome &outcome, const QString &notCreated, SystemLog &log)
{
    if (std::holds_alternative<ScriptDone>(outcome))
        return Sent{};
    const auto *error = std::get_if<ScriptError>(&outcome);
    if (!error)
        return Refused{notCreated};
    log.write(logPrefix + error->description);
    if (leavesDoubt(*error))
        return InDoubt{error->message.value_or(QString()).trimmed()};
    return Refused{notAuthorised, error->message.value_or(QString()).trimmed()};
}

std::optional<QString> defaultMailApplicationBundleIdentifier(const Platform &platform)
{
    return platform.workspace.defaultApplication(QUrl(u"mailto:adresse@example.com"_s));
}

Refusal unreachable(const ProspectStore &store, const Prospect &prospect)
{
    if (store.isStopped(prospect))
        return stoppedEmail;
    if (!prospect.email || !validEmail(*prospect.email))
        return noAddress;
    if (store.isServedByTwin(Channel::email, prospect))
        return servedByTwin;
    if (store.attachmentName(prospect) && !store.attachmentURL(prospect))
        return attachmentGone;
    return {};
}

Refusal showDraft(const Platform &platform, const MailDraft &draft)
{
    const ScriptOutcome outcome = platform.scripts.run(mailScript(draft, MailDelivery::Draft));
    const SendOutcome shown = mailOutcome(outcome, draftNotCreated, platform.log);
    if (const auto *refused = std::get_if<Refused>(&shown))
        return refused->message;
    return std::holds_alternative<Sent>(shown) ? Refusal() : notAuthorised;
}

Refusal composeWithFile(const Platform &platform, const QString &address, const EmailTemplate &text,
                        const QUrl &file)
{
    if (defaultMailApplicationBundleIdentifier(platform) == appleMail)
        return showDraft(platform, {address, text.subject, text.body, file.toLocalFile()});
    ComposeService *email = platform.sharing.composeEmail();
    if (!email)
        return noEmailService;
    const Composition composition{{address}, text.subject, text.body, file};
    if (!email->canPerform(composition))
        return fileRefused;
    email->perform(composition);
    return {};
}

Refusal openEmail(const Platform &platform, const QString &address, const EmailTemplate &text,
                  const std::optional<QUrl> &attachment)
{
    if (attachment)
        return composeWithFile(platform, address, text, *attachment);
    // Mail programs agree on one line end in a URL: CRLF.
    const QString lines = linesOf(text.body).join(u"\r\n"_s);
    const QueryItem items[] = {{u"subject"_s, text.subject}, {u"body"_s, lines}};
    const QUrl url = composeUrl(u"mailto"_s, address, items);
    if (!url.isValid())
        return notPrepared;
    if (!platform.workspace.openUrl(url))
        return notOpened;
    return {};
}

QCoro::Task<SendOutcome> performAppleMail(const Platform &platform, MailDraft draft)
{
    SystemLog &log = platform.log; // the services outlive whoever sends
    const QString source = mailScript(draft, MailDelivery::Immediate);
    const QFuture<ScriptOutcome> outcome = runScript(platform.scripts, source);
    const ScriptOutcome result = co_await outcome;
    co_return mailOutcome(result, immediateNotCreated, log);
}

} // namespace

Refusal ProspectStore::prepareEmail(const Prospect &prospect)
{
    if (Refusal refusal = unreachable(*this, prospect))
        return refusal;
    return openEmail(m_state->platform, *prospect.email, assignedEmailTemplate(prospect),
                     attachmentURL(prospect));
}

QCoro::Task<SendOutcome> ProspectStore::sendEmailAutomatically(Prospect prospect, HandOverGate gate)
{
    if (const Prospect *now = this->prospect(prospect.id))
        prospect = *now;
    else
        co_return Refused{};
    if (Refusal refusal = unreachable(*this, prospect))
        co_return Refused{refusal};
    if (defaultMailApplicationBundleIdentifier(m_state->platform) != appleMail)
        co_return Refused{appleMailNeeded, QString()};
    const std::optional<QUrl> file = attachmentURL(prospect);
    const EmailTemplate assigned = assignedEmailTemplate(prospect);
    const HandOver message{prospect, *prospect.email, assigned.subject, assigned.body,
                           file.value_or(QUrl()).toLocalFile()};
    if (Refusal refusal = gate ? gate(message) : std::nullopt)
        co_return Refused{refusal};
    MailDraft draft{message.recipient, message.subject, message.body, {}};
    if (file)
        draft.attachmentPath = message.attachmentPath;
    const TaskScope::Lease lease = m_state->tasks.lease();
    const QCoro::Task<SendOutcome> sending = performAppleMail(m_state->platform, draft);
    const SendOutcome outcome = co_await sending;
    if (lease.isAbandoned())
        co_return Abandoned{};
    co_return outcome;
}

ChannelDelivery emailDelivery()
{
    return {.prepare = [](ProspectStore &store, const Platform & /*platform*/,
                          const Prospect &contact,
                          bool /*freeProEnabled*/) { return store.prepareEmail(contact); },
            .send =
                [](ProspectStore &store, Sending sending) {
                    return store.sendEmailAutomatically(std::move(sending.contact),
                                                        std::move(sending.gate));
                },
            .oneByOne = true,
            .waitsForMailTurn = true};
}

} // namespace quenoria
