#pragma once

#include "platform/preferences.h"

namespace quenoria {

/// By which road an automatic e-mail leaves the computer.
enum class MailRoad {
    mailProgram, ///< the system's own sendmail
    mailbox,     ///< the server of the user's mailbox
};

/// How the connection to a submission server is encrypted.
enum class SmtpSecurity {
    startTls,    ///< from the first commands on, usually on port 587
    implicitTls, ///< from the first byte on, usually on port 465
};

/// The user's own mailbox, without its password.
struct MailboxAccount {
    QString host;
    int port = 587;
    SmtpSecurity security = SmtpSecurity::startTls;
    QString user; ///< empty: the server asks nobody who he is
    QString senderName;
    QString senderAddress;
    QString replyTo;          ///< empty: answers go to the sender
    bool keepsCopies = false; ///< in the mailbox's folder of sent messages
    QString imapHost;
    int imapPort = 993; ///< 143: encrypted by STARTTLS; any other: from the first byte on
    bool operator==(const MailboxAccount &) const = default;

    [[nodiscard]] bool isComplete() const;
};

/// At most so many e-mails leave in a minute and in twenty-four hours: providers block a mailbox
/// that sends more.
struct MailPace {
    int perMinute = 20;
    int perDay = 500;
    bool operator==(const MailPace &) const = default;
};

/// The choices about e-mails, kept as preferences of their own. What was never set, or cannot be
/// read, is the default.
class MailSettings {
public:
    explicit MailSettings(Preferences &preferences) : m_preferences(preferences) {}

    [[nodiscard]] MailRoad road() const;
    [[nodiscard]] MailboxAccount account() const;
    [[nodiscard]] MailPace pace() const;

    void setRoad(MailRoad road);
    void setAccount(const MailboxAccount &account);
    void setPace(MailPace pace);

private:
    QString text(const QString &key) const;
    int number(const QString &key, int whenAbsent) const;

    Preferences &m_preferences;
};

} // namespace quenoria
