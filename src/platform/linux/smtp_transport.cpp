#include "platform/linux/smtp_transport.h"

#include "platform/linux/smtp_words.h"
#include "platform/mime/mime_message.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString notSetUp =
    u"Votre boîte aux lettres n’est pas encore réglée (menu Envois, « Moyens d’envoi… »)."_s;
const QString noPassword = u"Le mot de passe de votre boîte aux lettres n’est pas connu : "
                           "donnez-le dans « Moyens d’envoi… »."_s;

} // namespace

SmtpTransport::SmtpTransport(const Clock &clock, Preferences &preferences,
                             std::shared_ptr<const KnownPasswords> passwords, SentCopies &copies,
                             SmtpConditions conditions)
    : m_clock(clock), m_settings(preferences), m_ids(preferences),
      m_passwords(std::move(passwords)), m_copies(copies), m_conditions(std::move(conditions))
{
}

TransportResult SmtpTransport::send(const OutgoingMessage &message)
{
    const MailboxAccount account = m_settings.account();
    if (!account.isComplete())
        return TransportFailure{notSetUp};
    const std::optional<QString> password = m_passwords->of(account);
    if (!account.user.isEmpty() && !password)
        return TransportFailure{noPassword};

    const QByteArray id = m_ids.begin(message, account.senderAddress);
    const MailIdentity identity{account.senderName, account.senderAddress, account.replyTo, id};
    const auto mime = mimeMessage(message, m_clock, identity);
    if (const auto *failure = std::get_if<TransportFailure>(&mime)) {
        m_ids.settle(id);
        return *failure;
    }
    SmtpMessage envelope{
        account.senderAddress.trimmed().toLatin1(), {}, std::get<QByteArray>(mime)};
    for (const QString &recipient : message.recipients)
        envelope.recipients << recipient.trimmed().toLatin1();
    const SmtpReport report =
        deliver(envelope, account, password.value_or(QString()), m_conditions);
    TransportResult result;
    if (report.fault != SmtpFault::none)
        result = failureOf(report, account, message.recipients.join(u", "_s).trimmed());
    if (!result || result->fate == Fate::kept)
        m_ids.settle(id);
    if (!result)
        m_copies.keep(envelope.text);
    return result;
}

} // namespace quenoria
