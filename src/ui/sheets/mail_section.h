#pragma once

#include "platform/mail_settings.h"
#include "platform/mailbox.h"
#include "ui/sheets/sending_section.h"

class QPushButton;

namespace quenoria {

class CarrierRow;
class MailboxForm;

/// The roads of automatic e-mails, the user's mailbox, and its test. The road holds at once; what
/// is typed is kept by "Enregistrer" or by a test.
class MailSection : public SendingSection {
    Q_OBJECT

public:
    MailSection(Mailbox &mailbox, Preferences &preferences, QWidget *parent = nullptr);

    [[nodiscard]] bool hasUnsavedInput() const;
    void save();

private:
    void addRoads();
    void addButtons();
    void follow(CarrierRow *row, MailRoad road);
    void refresh() override;
    void refreshRoads();
    PasswordPlace placeFor(const MailboxAccount &typed) const;
    void findPassword();
    void showPlace(const QFuture<PasswordPlace> &answer);
    void test();
    void tellAccepted() override;
    void tellOfCopy(const QString &before);

    Mailbox &m_mailbox;
    Preferences &m_preferences;
    MailSettings m_settings;
    PasswordPlace m_place = PasswordPlace::nowhere;
    CarrierRow *m_mailboxRow;
    CarrierRow *m_programRow;
    MailboxForm *m_form;
    QPushButton *m_save;
    QPushButton *m_test;
};

} // namespace quenoria
