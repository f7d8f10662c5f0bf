#pragma once

#include "platform/mail_settings.h"

#include <map>
#include <mutex>

namespace quenoria {

/// The passwords of this run of the program, each for one user of one server: another server
/// never gets them. May be used from any thread.
class KnownPasswords {
public:
    /// The name under which the keyring knows the account's password.
    [[nodiscard]] static QString name(const MailboxAccount &account)
    {
        return QStringLiteral("smtp:%1@%2").arg(account.user, account.host);
    }

    [[nodiscard]] std::optional<QString> of(const MailboxAccount &account) const
    {
        const std::lock_guard lock(m_mutex);
        const auto found = m_passwords.find(name(account));
        return found == m_passwords.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const QString &name, const QString &password)
    {
        const std::lock_guard lock(m_mutex);
        m_passwords[name] = password;
    }

private:
    mutable std::mutex m_mutex;
    std::map<QString, QString> m_passwords;
};

} // namespace quenoria
