#include "platform/linux/linux_mailbox.h"

#include "platform/linux/mail_program.h"

#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QFuture<PasswordPlace> known(PasswordPlace place) { return QtFuture::makeReadyFuture(place); }

} // namespace

LinuxMailbox::LinuxMailbox(Preferences &preferences, Secrets &keyring,
                           std::shared_ptr<KnownPasswords> passwords, MailTransport &transport,
                           const SentCopies &copies)
    : m_settings(preferences), m_keyring(keyring), m_passwords(std::move(passwords)),
      m_transport(transport), m_copies(copies)
{
}

std::optional<QString> LinuxMailbox::otherRoad() const { return mailProgram(); }

QFuture<PasswordPlace> LinuxMailbox::findPassword()
{
    const MailboxAccount account = m_settings.account();
    if (m_settings.road() != MailRoad::mailbox || account.user.isEmpty())
        return known(PasswordPlace::notNeeded);
    const QString name = KnownPasswords::name(account);
    if (m_passwords->of(account))
        return known(m_inKeyring->contains(name) ? PasswordPlace::keyring : PasswordPlace::memory);
    const auto remember = [passwords = m_passwords, inKeyring = m_inKeyring,
                           name](const SecretAnswer &answer) {
        if (answer.state != SecretAnswer::State::found)
            return PasswordPlace::nowhere;
        passwords->set(name, answer.secret);
        inKeyring->insert(name);
        return PasswordPlace::keyring;
    };
    return m_keyring.read(name).then(remember);
}

QFuture<PasswordPlace> LinuxMailbox::setPassword(const QString &password)
{
    const QString name = KnownPasswords::name(m_settings.account());
    m_passwords->set(name, password);
    m_inKeyring->erase(name);
    const auto remember = [inKeyring = m_inKeyring, name](SecretAnswer::State state) {
        if (state != SecretAnswer::State::found)
            return PasswordPlace::memory;
        inKeyring->insert(name);
        return PasswordPlace::keyring;
    };
    return m_keyring.keep(name, password).then(remember);
}

QFuture<std::optional<QString>> LinuxMailbox::copyProblem() { return m_copies.lastProblem(); }

QFuture<TransportResult> LinuxMailbox::sendTest()
{
    OutgoingMessage message;
    message.subject = u"Essai d’envoi depuis Quenoria"_s;
    message.content =
        u"Ce message vous vient de vous-même : votre boîte aux lettres est prête.\n"_s;
    message.recipients << m_settings.account().senderAddress;
    const auto send = [transport = &m_transport, message] { return transport->send(message); };
    return QtConcurrent::run(send);
}

} // namespace quenoria
