#include "ui/queue/queue_fixture.h"

#include <QCheckBox>
#include <QMessageBox>

using namespace quenoria;
using namespace quenoria::test;

namespace {

TEST_F(QueueSheets, EmailsGoOneAfterTheOtherAndStopOnARefusal)
{
    switches.setAutoValidateEmail(true);
    show(emailChannel());
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

TEST_F(QueueSheets, WhatIsClickedDuringASlowSendNeverMeetsTheNextContact)
{
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [this](const QString &) {
        gate.acquire();
        return ScriptDone{};
    };
    show(emailChannel());
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
        show(emailChannel());
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
    show(emailChannel());
    settle();
    EXPECT_EQ(desktop.scripts.sources.size(), 3);
}

TEST_F(QueueSheets, ADoubtStopsTheRunAndItsAnswerMovesOn)
{
    switches.setAutoValidateEmail(true);
    desktop.scripts.answer = [](const QString &) {
        return ScriptError{u"x"_s, {}, ScriptError::timedOut};
    };
    show(emailChannel());
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
    show(emailChannel());
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

} // namespace
