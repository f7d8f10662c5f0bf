#pragma once

#include "platform/linux/known_passwords.h"
#include "platform/linux/sent_copies.h"
#include "platform/mail_transport.h"
#include "platform/mailbox.h"
#include "platform/secrets.h"

#include <memory>
#include <set>

namespace quenoria {

/// The mailbox of the settings, whose password lives in the keyring.
class LinuxMailbox : public Mailbox {
public:
    /// The transport is the one that e-mails take.
    LinuxMailbox(Preferences &preferences, Secrets &keyring,
                 std::shared_ptr<KnownPasswords> passwords, MailTransport &transport,
                 const SentCopies &copies);

    [[nodiscard]] bool isFixed() const override { return false; }
    [[nodiscard]] std::optional<QString> otherRoad() const override;
    [[nodiscard]] QFuture<PasswordPlace> findPassword() override;
    [[nodiscard]] QFuture<PasswordPlace> setPassword(const QString &password) override;
    [[nodiscard]] QFuture<TransportResult> sendTest() override;
    [[nodiscard]] QFuture<std::optional<QString>> copyProblem() override;

private:
    using Names = std::set<QString>;

    MailSettings m_settings;
    Secrets &m_keyring;
    std::shared_ptr<KnownPasswords> m_passwords;
    std::shared_ptr<Names> m_inKeyring = std::make_shared<Names>();
    MailTransport &m_transport;
    const SentCopies &m_copies;
};

} // namespace quenoria
