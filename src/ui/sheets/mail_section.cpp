#include "ui/sheets/mail_section.h"

#include "ui/kit/labels.h"
#include "ui/kit/status_label.h"
#include "ui/sheets/carrier_row.h"
#include "ui/sheets/mailbox_form.h"

#include <QButtonGroup>
#include <QFutureWatcher>
#include <QPushButton>
#include <QRadioButton>
#include <QTime>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString mailboxId = u"boite"_s;
const QString programId = u"sendmail"_s;
const QString installProgram = u"sudo apt install msmtp msmtp-mta"_s;
const QString testNote = u"« Tester » enregistre, puis envoie un e-mail d’essai à votre adresse."_s;

QString passwordWords(PasswordPlace place)
{
    switch (place) {
    case PasswordPlace::nowhere:
        return u"Le mot de passe n’est pas encore connu."_s;
    case PasswordPlace::memory:
        return u"Aucun trousseau n’est ouvert sur ce bureau : le mot de passe n’est gardé nulle "
               "part et sera redemandé à chaque démarrage."_s;
    case PasswordPlace::keyring:
        return u"Le mot de passe est gardé dans le trousseau de votre bureau."_s;
    case PasswordPlace::notNeeded:
        return u"Sans identifiant, aucun mot de passe n’est donné au serveur."_s;
    }
    return {};
}

Carrier mailboxCarrier(const MailboxAccount &account, PasswordPlace place)
{
    const bool isReady = account.isComplete() && place != PasswordPlace::nowhere;
    return {.id = mailboxId,
            .name = u"Ma boîte aux lettres"_s,
            .state = isReady ? CarrierState::ready : CarrierState::unavailable,
            .words = isReady ? u"Prête : %1."_s.arg(account.senderAddress)
                             : u"Donnez votre adresse et votre mot de passe."_s,
            .command = {},
            .road = u"Les e-mails partent chiffrés de cet ordinateur vers le serveur de votre "
                    "fournisseur."_s};
}

Carrier programCarrier(const std::optional<QString> &program)
{
    return {.id = programId,
            .name = u"Programme sendmail du système"_s,
            .state = program ? CarrierState::ready : CarrierState::notInstalled,
            .words = program ? u"Trouvé : %1."_s.arg(*program)
                             : u"Aucun programme de ce genre n’est installé."_s,
            .command = program ? QString() : installProgram,
            .road = u"Les e-mails sont remis à ce programme, qui les envoie selon ses propres "
                    "réglages."_s};
}

Carrier demonstrationCarrier()
{
    return {.id = mailboxId,
            .name = u"Boîte aux lettres de démonstration"_s,
            .state = CarrierState::ready,
            .words = u"Prête."_s,
            .command = {},
            .road = u"Rien ne quitte cet ordinateur : l’e-mail est classé dans un dossier."_s};
}

} // namespace

MailSection::MailSection(Mailbox &mailbox, Preferences &preferences, QWidget *parent)
    : SendingSection(u"E-mail"_s, parent), m_mailbox(mailbox), m_preferences(preferences),
      m_settings(preferences), m_form(new MailboxForm), m_save(new QPushButton(u"Enregistrer"_s)),
      m_test(new QPushButton(u"Tester"_s))
{
    addRoads();
    column()->addWidget(m_form);
    addButtons();
    m_form->setAccount(m_settings.account());
    m_form->setPace(m_settings.pace());
    m_form->setDisabled(mailbox.isFixed());
    connect(m_form, &MailboxForm::edited, this, &MailSection::refresh);
    refreshRoads();
    findPassword();
    tellOfCopy({});
}

void MailSection::addRoads()
{
    m_mailboxRow =
        new CarrierRow(m_mailbox.isFixed() ? demonstrationCarrier()
                                           : mailboxCarrier(m_settings.account(), m_place));
    m_programRow = new CarrierRow(programCarrier(m_mailbox.otherRoad()));
    auto *choices = new QButtonGroup(this);
    for (CarrierRow *row : {m_mailboxRow, m_programRow}) {
        column()->addWidget(row);
        choices->addButton(row->choice());
    }
    m_programRow->setVisible(!m_mailbox.isFixed());
    follow(m_mailboxRow, MailRoad::mailbox);
    follow(m_programRow, MailRoad::mailProgram);
}

void MailSection::follow(CarrierRow *row, MailRoad road)
{
    connect(row, &CarrierRow::chosen, this, [this, road] {
        m_settings.setRoad(road);
        outcome()->setStatus({}, Tint::text);
        refreshRoads();
        findPassword();
    });
}

void MailSection::addButtons()
{
    auto *row = new QHBoxLayout;
    row->addWidget(makeLabel(testNote, TextStyle::footnote, Tint::secondary), 1);
    for (QPushButton *button : {m_save, m_test}) {
        button->setAutoDefault(false);
        row->addWidget(button, 0, Qt::AlignTop);
    }
    m_save->setAccessibleName(u"Enregistrer la boîte aux lettres"_s);
    m_test->setAccessibleName(u"Tester l’e-mail"_s);
    column()->addLayout(row);
    column()->addWidget(outcome());
    connect(m_save, &QPushButton::clicked, this, &MailSection::save);
    connect(m_test, &QPushButton::clicked, this, &MailSection::test);
}

void MailSection::refreshRoads()
{
    const bool isFixed = m_mailbox.isFixed();
    const bool isMailbox = isFixed || m_settings.road() == MailRoad::mailbox;
    m_mailboxRow->show(isFixed ? demonstrationCarrier()
                               : mailboxCarrier(m_settings.account(), m_place),
                       isMailbox, isFixed);
    m_programRow->show(programCarrier(m_mailbox.otherRoad()), !isMailbox, isFixed);
    m_form->setServerVisible(isMailbox);
    refresh();
}

void MailSection::refresh()
{
    const bool isMailbox = m_settings.road() == MailRoad::mailbox;
    const MailboxAccount typed = m_form->account();
    m_form->setPasswordWords(isMailbox && !m_mailbox.isFixed() ? passwordWords(placeFor(typed))
                                                               : QString());
    m_save->setEnabled(hasUnsavedInput());
    m_test->setEnabled(!m_mailbox.isFixed() &&
                       (isMailbox ? typed.isComplete() : !typed.senderAddress.isEmpty()));
}

/// What is known of the stored account's password says nothing of another's.
PasswordPlace MailSection::placeFor(const MailboxAccount &typed) const
{
    const MailboxAccount stored = m_settings.account();
    if (typed.user == stored.user && typed.host == stored.host)
        return m_place;
    return typed.user.isEmpty() ? PasswordPlace::notNeeded : PasswordPlace::nowhere;
}

bool MailSection::hasUnsavedInput() const
{
    return !m_form->password().isEmpty() || m_form->account() != m_settings.account() ||
           m_form->pace() != m_settings.pace();
}

/// The account comes first: the password belongs to its user and its server.
void MailSection::save()
{
    const QString password = m_form->password();
    m_settings.setAccount(m_form->account());
    m_settings.setPace(m_form->pace());
    m_form->clearPassword();
    outcome()->setStatus({}, Tint::text);
    if (const auto reason = m_preferences.unsaved())
        outcome()->setStatus(u"Ces réglages n’ont pas pu être enregistrés : "_s + *reason,
                             Tint::negative, u"exclamationmark.triangle.fill"_s);
    if (password.isEmpty())
        findPassword();
    else
        showPlace(m_mailbox.setPassword(password));
    refresh();
}

void MailSection::findPassword() { showPlace(m_mailbox.findPassword()); }

void MailSection::showPlace(const QFuture<PasswordPlace> &answer)
{
    auto *watcher = new QFutureWatcher<PasswordPlace>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_place = watcher->result();
        refreshRoads();
    });
    watcher->setFuture(answer);
}

void MailSection::test()
{
    if (isTrying())
        return;
    save();
    tryOut({u"Envoi de l’e-mail d’essai…"_s, u"L’e-mail d’essai n’est pas parti."_s,
            [this] { return m_mailbox.sendTest(); }});
}

void MailSection::tellAccepted()
{
    const QString words =
        u"E-mail d’essai : accepté à %1. Regardez s’il arrive dans votre boîte."_s.arg(
            QTime::currentTime().toString(u"HH:mm"_s));
    outcome()->setStatus(words, Tint::positive, u"checkmark.circle.fill"_s);
    tellOfCopy(words + u' ');
}

/// Adds that the last copy was not kept, to what stands there.
void MailSection::tellOfCopy(const QString &before)
{
    auto *watcher = new QFutureWatcher<std::optional<QString>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, before] {
        watcher->deleteLater();
        if (const std::optional<QString> problem = watcher->result())
            outcome()->setStatus(before + *problem, Tint::negative,
                                 u"exclamationmark.triangle.fill"_s);
    });
    watcher->setFuture(m_mailbox.copyProblem());
}

} // namespace quenoria
