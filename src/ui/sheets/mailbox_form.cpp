#include "ui/sheets/mailbox_form.h"

#include "platform/mail_providers.h"
#include "ui/kit/plain_text.h"
#include "ui/kit/status_label.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr int lastPort = 65535;
constexpr int mostPerMinute = 1000;
constexpr int mostPerDay = 100'000;

QSpinBox *makeNumber(int most, const QString &unit = {})
{
    auto *box = new QSpinBox;
    box->setRange(1, most);
    box->setSuffix(unit);
    return box;
}

} // namespace

MailboxForm::MailboxForm(QWidget *parent)
    : Form(parent), m_address(addField(u"Votre adresse"_s)), m_host(addField(u"Serveur d’envoi"_s)),
      m_port(makeNumber(lastPort)), m_security(new QComboBox), m_passwordWords(new StatusLabel),
      m_advice(new StatusLabel),
      m_copies(new QCheckBox(u"Ranger une copie dans le dossier « Envoyés » de la boîte (IMAP)"_s)),
      m_imapPort(makeNumber(lastPort)), m_perMinute(makeNumber(mostPerMinute, u" par minute"_s)),
      m_perDay(makeNumber(mostPerDay, u" par jour"_s))
{
    setFrameShape(QFrame::NoFrame);
    addServer();
    addCopies();
    addPace();
    for (const QLineEdit *field : findChildren<QLineEdit *>())
        connect(field, &QLineEdit::textChanged, this, &MailboxForm::edited);
    connect(m_security, &QComboBox::currentIndexChanged, this, &MailboxForm::edited);
    connect(m_copies, &QCheckBox::toggled, this, &MailboxForm::edited);
    connect(m_copies, &QCheckBox::toggled, this, &MailboxForm::showCopies);
    connect(m_address, &QLineEdit::textEdited, this, &MailboxForm::followAddress);
    connect(m_address, &QLineEdit::textChanged, this, &MailboxForm::advise);
    connect(m_host, &QLineEdit::textEdited, this, [this] { m_followsAddress = false; });
}

void MailboxForm::addServer()
{
    m_security->addItem(u"STARTTLS"_s, int(SmtpSecurity::startTls));
    m_security->addItem(u"TLS dès la connexion"_s, int(SmtpSecurity::implicitTls));
    addRow(u"Port"_s, m_port);
    addRow(u"Chiffrement"_s, m_security);
    m_user = addField(u"Identifiant"_s);
    m_password = addField(u"Mot de passe"_s);
    m_password->setEchoMode(QLineEdit::Password);
    addRow(m_passwordWords);
    addRow(m_advice);
    m_name = addField(u"Nom de l’expéditeur"_s);
    m_replyTo = addField(u"Répondre à"_s);
    m_replyTo->setPlaceholderText(u"Votre adresse, si ce champ est vide"_s);
}

void MailboxForm::addCopies()
{
    m_copies->setToolTip(tipText(u"Certains fournisseurs, dont Gmail et Outlook, en gardent déjà "
                                 "une d’eux-mêmes."_s));
    addRow(m_copies);
    m_imapHost = addField(u"Serveur IMAP"_s);
    addRow(u"Port IMAP"_s, m_imapPort);
}

/// The server of the copies only matters to who wants them.
void MailboxForm::showCopies()
{
    setRowVisible(m_copies, m_hasServer);
    for (QWidget *row : std::initializer_list<QWidget *>{m_imapHost, m_imapPort})
        setRowVisible(row, m_hasServer && m_copies->isChecked());
}

void MailboxForm::addPace()
{
    addRow(u"Au plus"_s, m_perMinute);
    addRow(u"et au plus"_s, m_perDay);
}

void MailboxForm::setAccount(const MailboxAccount &account)
{
    const auto known = providerSettings(account.senderAddress);
    m_followsAddress = account.host.isEmpty() || (known && known->host == account.host);
    m_address->setText(account.senderAddress);
    m_name->setText(account.senderName);
    m_replyTo->setText(account.replyTo);
    m_copies->setChecked(account.keepsCopies);
    show(account);
    advise();
}

void MailboxForm::setPace(MailPace pace)
{
    m_perMinute->setValue(pace.perMinute);
    m_perDay->setValue(pace.perDay);
}

void MailboxForm::followAddress(const QString &address)
{
    if (!m_followsAddress)
        return;
    MailboxAccount unknown;
    unknown.user = address.trimmed();
    show(providerSettings(address).value_or(unknown));
}

void MailboxForm::show(const MailboxAccount &account)
{
    m_host->setText(account.host);
    m_port->setValue(account.port);
    m_security->setCurrentIndex(m_security->findData(int(account.security)));
    m_user->setText(account.user);
    m_imapHost->setText(account.imapHost);
    m_imapPort->setValue(account.imapPort);
}

void MailboxForm::advise()
{
    m_advice->setStatus(passwordAdvice(m_address->text()).trimmed(), Tint::secondary,
                        u"info.circle"_s);
}

void MailboxForm::setServerVisible(bool visible)
{
    QWidget *const rows[] = {m_host,     m_port,          m_security, m_user,
                             m_password, m_name,          m_replyTo,  m_perMinute,
                             m_perDay,   m_passwordWords, m_advice};
    for (QWidget *row : rows)
        setRowVisible(row, visible);
    m_hasServer = visible;
    showCopies();
    if (visible)
        advise();
}

void MailboxForm::setPasswordWords(const QString &words) const
{
    m_passwordWords->setStatus(words, Tint::secondary);
}

void MailboxForm::clearPassword() const { m_password->clear(); }

MailboxAccount MailboxForm::account() const
{
    return {m_host->text().trimmed(),
            m_port->value(),
            SmtpSecurity(m_security->currentData().toInt()),
            m_user->text().trimmed(),
            m_name->text().trimmed(),
            m_address->text().trimmed(),
            m_replyTo->text().trimmed(),
            m_copies->isChecked(),
            m_imapHost->text().trimmed(),
            m_imapPort->value()};
}

MailPace MailboxForm::pace() const { return {m_perMinute->value(), m_perDay->value()}; }

QString MailboxForm::password() const { return m_password->text(); }

} // namespace quenoria
