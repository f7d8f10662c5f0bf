#include "ui/sheets/password_view.h"

#include "platform/mailbox.h"
#include "ui/kit/alert.h"
#include "ui/kit/form.h"
#include "ui/kit/labels.h"

#include <QApplication>
#include <QBoxLayout>
#include <QLineEdit>
#include <QPromise>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quenoria {

PasswordView::PasswordView(Mailbox &mailbox, const QString &address, QWidget *parent)
    : Sheet(u"Mot de passe de votre boîte"_s, {520, 280}, parent), m_mailbox(mailbox),
      m_password(makeField(u"Mot de passe"_s))
{
    addTitle(windowTitle());
    column()->addWidget(
        makeLabel(u"L’envoi passe par %1. Aucun trousseau n’en garde le mot de "
                  "passe : il vaudra jusqu’à la fermeture de l’application."_s.arg(address),
                  TextStyle::body, Tint::secondary));
    m_password->setEchoMode(QLineEdit::Password);
    column()->addWidget(m_password);
    column()->addStretch();
    QPushButton *confirm = addConfirmRow(u"Continuer"_s);
    enableWhenFilled(confirm, {m_password});
    connect(confirm, &QPushButton::clicked, this, &PasswordView::give);
}

/// Known at once; whether a keyring keeps it too is of no concern here.
void PasswordView::give()
{
    const QFuture<PasswordPlace> place = m_mailbox.setPassword(m_password->text());
    accept();
}

QFuture<void> PasswordView::ask(Mailbox &mailbox, const QString &address, QWidget *window,
                                const std::stop_token &stop)
{
    using Stopped = std::stop_callback<std::function<void()>>;
    auto *sheet = new PasswordView(mailbox, address, window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    auto answered = std::make_shared<QPromise<void>>();
    answered->start();
    const auto onStop = std::make_shared<Stopped>(stop, [self = QPointer(sheet)] {
        if (self)
            self->done(QDialog::Rejected);
    });
    // A sheet that goes with its window answers too.
    connect(sheet, &QObject::destroyed, qApp, [answered, onStop] { answered->finish(); });
    openInFront(sheet, window);
    return answered->future();
}

} // namespace quenoria
