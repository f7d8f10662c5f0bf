#include "support/fake_desktop.h"
#include "ui/kit/deliberate_input.h"
#include "ui/kit/switches.h"
#include "ui/queue/batch_queue.h"
#include "ui/queue/queue_sheet.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSemaphore>
#include <QTest>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class QueueSheets : public testing::Test {
protected:
    QueueSheets()
    {
        desktop.workspace.mailApplication = u"com.apple.mail"_s;
        desktop.resources.files[u"prospects.tsv"_s] = "b\t06 39 98 00 10\tb@example.org\n"
                                                      "A\t06 39 98 00 11\ta@example.org\n"
                                                      "c\t06 39 98 00 12\tc@example.org\n"
                                                      "d\t06 39 98 00 13\n";
        start();
    }

    void start()
    {
        desk.reset();
        store = std::make_unique<ProspectStore>(desktop.platform());
        desk = std::make_unique<SendDesk>(*store, desktop.platform());
        store->updateMessage(ProspectStore::defaultMessageID, u"1er envoi"_s, u"Bonjour"_s);
        store->updateEmailTemplate(ProspectStore::defaultEmailTemplateID, {}, {}, u"Bonjour"_s);
        for (const Prospect &prospect : store->allProspects()) {
            store->setSelectedForSending(true, prospect);
            store->setSelectedForEmailSending(true, prospect);
        }
    }

    ~QueueSheets() override
    {
        delete sheet;
        desktop.clock.advance(0ms);
    }

    Prospect contact(int number) { return *store->prospect(u"06399800%1"_s.arg(10 + number)); }
    std::size_t sent(int number) { return store->sendHistory(contact(number)).size(); }

    template <typename View = BatchSendView>
    void show()
    {
        sheet = new View(*desk, switches, desktop.platform());
        sheet->present();
        QCoreApplication::processEvents();
    }

    bool shows(const QString &text) const
    {
        return std::ranges::any_of(sheet->findChildren<QLabel *>(), [&](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }

    QPushButton *button(const QString &text) const
    {
        const auto buttons = sheet->findChildren<QPushButton *>();
        const auto found = std::ranges::find(
            buttons, text, [](QPushButton *each) { return each->text().remove(u'&'); });
        return found == buttons.end() ? nullptr : *found;
    }

    void press(const QString &text)
    {
        button(text)->click();
        settle();
    }

    void enter(bool repeated)
    {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, repeated);
        QWidget *focused = sheet->focusWidget();
        QCoreApplication::sendEvent(focused ? focused : sheet, &key);
    }

    DeliberateInput input{*qApp};
    FakeDesktop desktop;
    std::unique_ptr<ProspectStore> store;
    std::unique_ptr<SendDesk> desk;
    Switches switches{desktop.preferences};
    QPointer<QueueSheet> sheet;
    QSemaphore gate;
};

TEST_F(QueueSheets, WorkByHandInTheOrderOfTheLabels)
{
    store->setStopped(true, contact(3));
    show();
    EXPECT_TRUE(shows(u"A"_s) && shows(u"Contact 1 sur 3"_s) && shows(u"0/250 ce mois"_s));
    EXPECT_FALSE(button(u"Envoyé, suivant"_s)->isEnabled());
    desktop.workspace.accepts = false;
    press(u"Préparer ce SMS"_s);
    EXPECT_TRUE(shows(u"Messages n’a pas pu être ouvert."_s));
    desktop.workspace.accepts = true;
    press(u"Préparer ce SMS"_s);
    sheet->tellOutcome({{u"+33639980011"_s}, {}, {}, {}}, u"Remis au modem à 14:02"_s);
    sheet->tellOutcome({{u"+33639980010"_s}, {}, {}, {}}, u"d’un autre"_s);
    EXPECT_TRUE(shows(u"Remis au modem à 14:02"_s));
    press(u"Envoyé, suivant"_s);
    EXPECT_FALSE(shows(u"Remis au modem à 14:02"_s));
    EXPECT_TRUE(shows(u"b"_s) && shows(u"Contact 2 sur 3"_s) && shows(u"1/250 ce mois"_s));
    press(u"Ignorer"_s);
    press(u"Ignorer"_s);
    EXPECT_FALSE(sheet) << "the last contact closes the sheet";
    EXPECT_EQ(sent(1), 1U);
    EXPECT_EQ(sent(0), 0U);
    EXPECT_TRUE(store->sendSelection().empty());
}

/// Older folders hold contacts twice, and edits may give two contacts one number.
TEST_F(QueueSheets, NobodyIsServedTwice)
{
    const QByteArray twin = R"({"id":"0639980011","label":"A","phone":"06 39 98 00 11",
        "email":"a@example.org","department":"29","isCustom":true})";
    desktop.writeFile(u"nouveaux-numeros.json"_s, "[" + twin + "," + twin + "]");
    desktop.writeFile(u"contacts-modifies.json"_s, R"({
        "0639980012":{"label":"c","phone":"+33 6 39 98 00 11","department":"29"},
        "0639980013":{"label":"d","phone":"06 39 98 00 11","department":"29"}})");
    start();
    show();
    EXPECT_TRUE(shows(u"A"_s) && shows(u"Contact 1 sur 4"_s)) << "a twin is one contact";
    press(u"Préparer ce SMS"_s);
    press(u"Envoyé, suivant"_s);
    press(u"Ignorer"_s);
    ASSERT_TRUE(sheet) << "what was passed over is to be read";
    EXPECT_TRUE(shows(u"Sélection terminée"_s));
    EXPECT_TRUE(shows(u"Déjà servi dans cette file sous un autre nom : A"_s));
    EXPECT_EQ(sent(1), 1U);
    EXPECT_EQ(sent(2) + sent(3), 0U);
    EXPECT_EQ(store->sendSelection(), (IdSet{u"0639980012"_s, u"0639980013"_s}));
}

TEST_F(QueueSheets, EmailsGoOneAfterTheOtherAndStopOnARefusal)
{
    switches.setAutoValidateEmail(true);
    show<BatchEmailSendView>();
    settle();
    EXPECT_TRUE(shows(u"Contact 2 sur 3"_s)) << "a contact without an address is not queued";
    EXPECT_EQ(desktop.clock.pending(), std::vector{800ms});
    desktop.scripts.answer = [](const QString &) { return ScriptError{u"x"_s, {}}; };
    desktop.clock.advance(800ms);
    EXPECT_TRUE(shows(u"b"_s));
    EXPECT_TRUE(store->emailStatus(contact(1)) && !store->emailStatus(contact(0)));
    EXPECT_EQ(store->emailSendSelection().size(), 2U);
    desktop.scripts.answer = [](const QString &) { return ScriptDone{}; };
    press(u"Envoyer automatiquement"_s);
    switches.setAutoValidateEmail(false);
    desktop.clock.advance(800ms);
    EXPECT_TRUE(shows(u"c"_s) && button(u"Préparer cet e-mail"_s)->isEnabled());
    EXPECT_TRUE(button(u"Préparer cet e-mail"_s)->hasFocus());
}

/// The reply comes while the message waits for its turn; the run goes on with the others.
TEST_F(QueueSheets, LeaveOutWhoAnsweredStopUntilTheUserDecides)
{
    for (const int each : {0, 3})
        store->recordSent(contact(each), desktop.clock.now() - 24h);
    desk->stopReplies().setOn(true);
    switches.setAutoValidateSMS(true);
    const auto receive = [this](const QString &number) {
        Q_EMIT desktop.carriers.received({number, u"STOP"_s, desktop.clock.now()});
    };
    receive(u"0639980013"_s);
    show();
    settle();
    desktop.clock.advance(800ms);
    receive(u"+33639980010"_s);
    desktop.clock.advance(10200ms);
    desktop.clock.advance(800ms);
    desktop.clock.advance(0ms);
    EXPECT_EQ(sent(0) + sent(3), 2U);
    EXPECT_EQ(sent(1) + sent(2), 2U) << "the others";
    ASSERT_TRUE(sheet);
    EXPECT_TRUE(shows(u"Laissé de côté jusqu’à votre décision, car sa réponse dit STOP : d, b"_s));
    EXPECT_EQ(store->sendSelection().size(), 2U);
    StopReplies &replies = desk->stopReplies();
    replies.ignore(ReceivedMessage(replies.waiting().at(0).message));
    replies.markStopped(ReceivedMessage(replies.waiting().at(0).message));
    EXPECT_TRUE(shows(u"d"_s)) << "is back";
    EXPECT_EQ(store->sendSelection().size(), 1U);
}

TEST_F(QueueSheets, TellWhatTheCarrierSaidAndLeadToTheOthers)
{
    show();
    EXPECT_TRUE(shows(u"4 contacts · 4 SMS"_s));
    EXPECT_FALSE(button(u"Choisir un moyen d’envoi…"_s)->isVisible());
    delete sheet;
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [](const QString &) {
        return ScriptError{u"x"_s, u" Le serveur <b> refuse."_s};
    };
    show<BatchEmailSendView>();
    settle();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !desk->isBusy(); }));
    settle();
    EXPECT_TRUE(shows(u"Le serveur <b> refuse."_s));
    int asked = 0;
    QObject::connect(sheet, &QueueSheet::carriersRequested, [&asked] { ++asked; });
    for (auto *each : sheet->findChildren<QPushButton *>()) {
        if (each->isVisible() && each->text() == u"Choisir un moyen d’envoi…"_s)
            each->click();
    }
    EXPECT_EQ(asked, 1);
}

TEST_F(QueueSheets, ASecondClickOrAHeldKeyNeverMeetsTheNextContact)
{
    show();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                    QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, {5, 5}, {5, 5}, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(button(u"Ignorer"_s), &event);
    }
    EXPECT_TRUE(shows(u"Contact 2 sur 4"_s));
    button(u"Préparer ce SMS"_s)->setFocus();
    for (const bool repeated : {false, true, true})
        enter(repeated);
    EXPECT_EQ(desktop.workspace.opened.size(), 1);
    EXPECT_EQ(sent(0), 0U);
}

TEST_F(QueueSheets, EnterPreparesAndNeverConfirms)
{
    show();
    for (int time = 0; time < 3; ++time)
        enter(false);
    EXPECT_EQ(desktop.workspace.opened.size(), 3);
    QPushButton *confirm = button(u"Envoyé, suivant"_s);
    confirm->setFocus();
    EXPECT_TRUE(confirm->isEnabled() && confirm->hasFocus());
    enter(false);
    EXPECT_EQ(sent(1), 0U);
    store->setComment(u"rappeler"_s, contact(0));
    EXPECT_TRUE(confirm->hasFocus()) << "left where the user put it";
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent space(type, Qt::Key_Space, {}, u" "_s);
        QCoreApplication::sendEvent(confirm, &space);
    }
    EXPECT_EQ(sent(1), 1U);
    EXPECT_TRUE(button(u"Préparer ce SMS"_s)->hasFocus());
}

TEST_F(QueueSheets, WhatIsClickedDuringASlowSendNeverMeetsTheNextContact)
{
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [this](const QString &) {
        gate.acquire();
        return ScriptDone{};
    };
    show<BatchEmailSendView>();
    for (const QString &text :
         {u"Ignorer"_s, u"Envoi automatique…"_s, u"E-mail envoyé, suivant"_s}) {
        QWidget *target = button(text);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(
                target, new QMouseEvent(type, {5, 5}, {5, 5}, Qt::LeftButton, Qt::LeftButton, {}));
        QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, {}));
    }
    switches.setAutoValidateEmail(false); // the run ends after this contact
    gate.release();
    settle();
    desktop.clock.advance(800ms);
    EXPECT_TRUE(shows(u"Contact 2 sur 3"_s) && shows(u"b"_s));
    EXPECT_FALSE(button(u"E-mail envoyé, suivant"_s)->isEnabled()) << "nothing was prepared";
    EXPECT_EQ(store->emailSendSelection().size(), 2U) << "nobody was skipped";
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
}

/// Leaving was asked for while a message went, or between two; then the user stays after all.
TEST_F(QueueSheets, ARunBeginsNothingMoreOnceLeavingWasAskedFor)
{
    switches.setAutoValidateEmail(true);
    for (const bool during : {true, false}) {
        show<BatchEmailSendView>();
        if (during)
            desk->close();
        settle();
        desk->close();
        desk->reopen();
        desktop.clock.advance(800ms);
        ASSERT_TRUE(button(u"Envoyer automatiquement"_s)) << during;
        delete sheet;
    }
    EXPECT_EQ(desktop.scripts.sources.size(), 2);
    show<BatchEmailSendView>();
    settle();
    EXPECT_EQ(desktop.scripts.sources.size(), 3);
}

TEST_F(QueueSheets, ADoubtStopsTheRunAndItsAnswerMovesOn)
{
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [](const QString &) {
        return ScriptError{u"x"_s, {}, ScriptError::timedOut};
    };
    show<BatchEmailSendView>();
    settle();
    EXPECT_TRUE(shows(u"Cet envoi a été interrompu. Le message est peut-être parti."_s));
    press(u"Envoyer automatiquement"_s);
    EXPECT_EQ(desktop.scripts.sources.size(), 1) << "not sent again before the answer";
    desk->answer(desk->doubts().at(0), DoubtAnswer::left);
    EXPECT_TRUE(shows(u"b"_s) && shows(u"Contact 2 sur 3"_s));
    EXPECT_EQ(store->emailHistory(contact(1)).size(), 1U);
    EXPECT_EQ(store->emailSendSelection().size(), 2U);
}

TEST_F(QueueSheets, AWaitForThePaceOfTheMailboxIsToldInOneSentence)
{
    MailSettings settings(desktop.preferences);
    settings.setRoad(MailRoad::mailbox);
    settings.setPace({1, 500});
    store->recordEmailSentNow(contact(3));
    desktop.mailbox.place = PasswordPlace::memory;
    switches.setAutoValidateEmail(true);
    show<BatchEmailSendView>();
    settle();
    EXPECT_TRUE(shows(u"Le rythme de votre boîte aux lettres est atteint : le prochain e-mail "
                      "part à 10:01:00, dans 60 s."_s));
}

/// By the button, by Escape and by the switch; before the contact that the countdown names or, if
/// its message is with the carrier already, after it.
TEST_F(QueueSheets, ARunCountsDownToItsNextMessageAndStopsBeforeIt)
{
    const auto escape = [this] { QTest::keyClick(sheet, Qt::Key_Escape); };
    const auto byButton = [this] { button(u"Arrêter"_s)->click(); };
    const auto bySwitch = [this] { switches.setAutoValidateSMS(false); };
    struct Row {
        const char *name;
        std::function<void()> stop;
        std::size_t sends; ///< after everything that was waited for
    };
    for (const auto &[name, stop, sends] :
         {Row{"button", byButton, 1}, Row{"Escape", escape, 1}, Row{"switch", bySwitch, 2}}) {
        SCOPED_TRACE(name);
        desktop.clock.advance(1h);
        desktop.scripts.sources.clear();
        switches.setAutoValidateSMS(true);
        show();
        EXPECT_TRUE(button(u"Arrêter"_s)->isVisible());
        settle();
        EXPECT_TRUE(shows(u"Envoi automatique en cours… prochain SMS dans 11 s"_s));
        for (int second = 0; second < 5; ++second)
            desktop.clock.advance(800ms);
        EXPECT_TRUE(shows(u"Envoi automatique en cours… prochain SMS dans 7 s"_s));
        stop();
        settle();
        for (int second = 0; second < 20; ++second)
            desktop.clock.advance(1s);
        ASSERT_TRUE(sheet);
        EXPECT_FALSE(switches.autoValidateSMS() || button(u"Arrêter"_s)->isVisible());
        EXPECT_EQ(std::size_t(desktop.scripts.sources.size()), sends);
        EXPECT_EQ(desktop.clock.pending().size(), 0U);
        escape();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(sheet) << "Escape leaves the sheet once no run is under way";
        start();
    }
}

TEST_F(QueueSheets, ClosedWhileWaitingSendsNothingMore)
{
    switches.setAutoValidateSMS(true);
    show();
    settle();
    desktop.clock.advance(800ms);
    ASSERT_EQ(desktop.clock.pending(), (std::vector{200ms, 10200ms}));
    sheet->close();
    desktop.clock.advance(0ms);
    EXPECT_FALSE(sheet || desk->isBusy() || store->automaticSMSBusy());
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
    EXPECT_EQ(store->sendSelection().size(), 3U);
}

TEST_F(QueueSheets, ClosedDuringASendStillRecordsItAndQueuesItNowhereElse)
{
    switches.setAutoValidateSMS(true);
    desktop.scripts.answer = [this](const QString &) {
        gate.acquire();
        return ScriptDone{};
    };
    show();
    ASSERT_TRUE(desk->isUnderWay(Channel::sms, contact(1).id));
    delete sheet;
    switches.setAutoValidateSMS(false);
    show();
    EXPECT_TRUE(shows(u"b"_s) && shows(u"Contact 1 sur 3"_s));
    bool recordedAtIdle = false;
    QObject::connect(desk.get(), &SendDesk::idle, [&] { recordedAtIdle = sent(1) == 1; });
    gate.release();
    settle();
    EXPECT_TRUE(recordedAtIdle);
    EXPECT_FALSE(desk->isBusy());
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
}

TEST_F(QueueSheets, AContactDeletedInItsTurnIsCountedIfItsMessageWent)
{
    const Prospect first = contact(1);
    switches.setAutoValidateSMS(true);
    desktop.scripts.answer = [this](const QString &) {
        gate.acquire();
        return ScriptDone{};
    };
    show();
    store->deleteProspects({first.id});
    gate.release();
    settle();
    EXPECT_EQ(store->smsRecipientsSentThisMonth(), 1);
    EXPECT_EQ(store->sendHistory(first).size(), 1U);
    desktop.clock.advance(800ms);
    store->deleteProspects({contact(0).id});
    desktop.clock.advance(0ms);
    EXPECT_TRUE(shows(u"Sélection terminée"_s));
    EXPECT_FALSE(shows(u"L’envoi a été abandonné avant d’être remis à Messages."_s));
    EXPECT_EQ(desktop.scripts.sources.size(), 1) << "deleted before its turn: nothing goes";
}

TEST_F(QueueSheets, AskOnceBeforeARunWithBlanksAndThenAboutTheHour)
{
    store->updateMessage(ProspectStore::defaultMessageID, u"x"_s, u"Je suis [votre nom]."_s);
    desktop.clock.set(desktop.clock.now() + 11h); // 21:00
    desktop.carriers.choice = u"modem"_s;
    switches.setAutoValidateSMS(true);
    show();
    settle();
    EXPECT_EQ(sent(1), 0U);
    EXPECT_TRUE(button(u"Préparer ce SMS"_s)->isEnabled());
    press(u"Annuler"_s);
    press(u"Préparer ce SMS"_s);
    press(u"Envoyer tel quel"_s);
    EXPECT_EQ(sent(1), 0U) << "there is a second question";
    EXPECT_FALSE(desktop.preferences.flag(u"EnvoiSMSHeuresSansQuestion"_s));
    sheet->findChild<QMessageBox *>()->checkBox()->setChecked(true);
    press(u"Envoyer quand même"_s);
    EXPECT_EQ(sent(1), 1U);
    EXPECT_TRUE(desktop.preferences.flag(u"EnvoiSMSHeuresSansQuestion"_s));
}

TEST_F(QueueSheets, WhoIsLeftOutStaysSelected)
{
    for (const int each : {0, 1})
        store->recordSent(contact(each), desktop.clock.now() - 24h);
    show();
    settle();
    press(u"2 contactés il y a moins de 30 jours"_s);
    press(u"Retirer de cet envoi (2)"_s);
    EXPECT_TRUE(shows(u"c"_s) && shows(u"Contact 1 sur 2"_s) && shows(u"2 contacts · 2 SMS"_s));
    EXPECT_FALSE(button(u"2 contactés il y a moins de 30 jours"_s)->isVisible());
    EXPECT_EQ(store->sendSelection().size(), 4U);
}

} // namespace
