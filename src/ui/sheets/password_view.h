#pragma once

#include "ui/kit/sheet.h"

#include <QFuture>

#include <stop_token>

class QLineEdit;

namespace quenoria {

class Mailbox;

/// Asks for the password of the user's mailbox where no keyring keeps it.
class PasswordView : public Sheet {
    Q_OBJECT

public:
    PasswordView(Mailbox &mailbox, const QString &address, QWidget *parent);

    /// Shows the sheet over what stands over the window; finishes once it is left, which a stop
    /// does too.
    [[nodiscard]] static QFuture<void> ask(Mailbox &mailbox, const QString &address,
                                           QWidget *window, const std::stop_token &stop);

private:
    void give();

    Mailbox &m_mailbox;
    QLineEdit *m_password;
};

} // namespace quenoria
