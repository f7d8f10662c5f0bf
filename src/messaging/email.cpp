#include "messaging/compose_url.h"
#include "messaging/line_ends.h"
#include "messaging/mail_script.h"
#include "messaging/refusals.h"
#include "model/contact_rules.h"
#include "store/prospect_store.h"

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

} // namespace

std::optional<QString> ProspectStore::defaultMailApplicationBundleIdentifier() const
{
    return m_platform.workspace.defaultApplication(QUrl(u"mailto:adresse@example.com"_s));
}

Refusal ProspectStore::unreachableByEmail(const Prospect &prospect) const
{
    if (isStopped(prospect))
        return stoppedEmail;
    if (!prospect.email || !validEmail(*prospect.email))
        return noAddress;
    if (attachmentName(prospect) && !attachmentURL(prospect))
        return attachmentGone;
    return {};
}

Refusal ProspectStore::prepareEmail(const Prospect &prospect)
{
    if (Refusal refusal = unreachableByEmail(prospect))
        return refusal;
    const EmailTemplate message = assignedEmailTemplate(prospect);
    return openEmail(*prospect.email, message.subject, message.body, attachmentURL(prospect));
}

QCoro::Task<Refusal> ProspectStore::sendEmailAutomatically(Prospect prospect)
{
    if (Refusal refusal = unreachableByEmail(prospect))
        co_return refusal;
    if (defaultMailApplicationBundleIdentifier() != appleMail)
        co_return appleMailNeeded;
    const EmailTemplate message = assignedEmailTemplate(prospect);
    co_return performAppleMail(*prospect.email, message.subject, message.body,
                               attachmentURL(prospect), true);
}

Refusal ProspectStore::openEmail(const QString &address, const QString &subject,
                                 const QString &body, const std::optional<QUrl> &attachment)
{
    if (attachment)
        return composeEmailWithFile(address, subject, body, *attachment);
    // Mail programs agree on one line end in a URL: CRLF.
    const QString lines = linesOf(body).join(u"\r\n"_s);
    const QueryItem items[] = {{u"subject"_s, subject}, {u"body"_s, lines}};
    const QUrl url = composeUrl(u"mailto"_s, address, items);
    if (!url.isValid())
        return notPrepared;
    if (!m_platform.workspace.openUrl(url))
        return notOpened;
    return {};
}

Refusal ProspectStore::composeEmailWithFile(const QString &address, const QString &subject,
                                            const QString &body, const QUrl &file)
{
    if (defaultMailApplicationBundleIdentifier() == appleMail)
        return performAppleMail(address, subject, body, file, false);
    ComposeService *email = m_platform.sharing.composeEmail();
    if (!email)
        return noEmailService;
    const Composition composition{{address}, subject, body, file};
    if (!email->canPerform(composition))
        return fileRefused;
    email->perform(composition);
    return {};
}

Refusal ProspectStore::performAppleMail(const QString &address, const QString &subject,
                                        const QString &body, const std::optional<QUrl> &attachment,
                                        bool sendImmediately)
{
    MailDraft draft{address, subject, body, {}};
    if (attachment)
        draft.attachmentPath = attachment->toLocalFile();
    const QString source =
        mailScript(draft, sendImmediately ? MailDelivery::Immediate : MailDelivery::Draft);
    const ScriptOutcome outcome = m_platform.scripts.run(source);
    if (std::holds_alternative<ScriptNotCreated>(outcome))
        return sendImmediately ? immediateNotCreated : draftNotCreated;
    if (const auto *error = std::get_if<ScriptError>(&outcome)) {
        m_platform.log.write(logPrefix + error->description);
        return notAuthorised;
    }
    return {};
}

} // namespace quenoria
