#pragma once

#include "platform/mail_settings.h"
#include "ui/kit/form.h"

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace quenoria {

class StatusLabel;

/// The fields of the user's mailbox. What a large provider publishes is filled in from the address
/// for as long as the user has not named a server himself.
class MailboxForm : public Form {
    Q_OBJECT

public:
    explicit MailboxForm(QWidget *parent = nullptr);

    void setAccount(const MailboxAccount &account);
    void setPace(MailPace pace);

    /// Of the address alone, for a road that needs no server.
    void setServerVisible(bool visible);

    /// What is known of the password, under its field.
    void setPasswordWords(const QString &words) const;
    void clearPassword() const;

    [[nodiscard]] MailboxAccount account() const;
    [[nodiscard]] MailPace pace() const;
    [[nodiscard]] QString password() const;

Q_SIGNALS:
    void edited();

private:
    void addServer();
    void addPace();
    void addCopies();
    void showCopies();
    void followAddress(const QString &address);
    void show(const MailboxAccount &account);
    void advise();

    QLineEdit *m_address;
    QLineEdit *m_host;
    QSpinBox *m_port;
    QComboBox *m_security;
    QLineEdit *m_user;
    QLineEdit *m_password;
    StatusLabel *m_passwordWords;
    StatusLabel *m_advice;
    QLineEdit *m_name;
    QLineEdit *m_replyTo;
    QCheckBox *m_copies;
    QLineEdit *m_imapHost;
    QSpinBox *m_imapPort;
    QSpinBox *m_perMinute;
    QSpinBox *m_perDay;
    bool m_followsAddress = true;
    bool m_hasServer = true;
};

} // namespace quenoria
