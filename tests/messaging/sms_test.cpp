#include "messaging/messaging_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString stopped = u"Cet abonné a demandé à ne plus être destinataire de SMS."_s;

class SMS : public MessagingTest {
protected:
    SMS() { store().updateMessage(ProspectStore::defaultMessageID, u"t"_s, u"A & B?\nc+d #é"_s); }

    QString prepare(const Prospect &prospect)
    {
        return store().prepareSMS(prospect, false).value_or(u"done"_s);
    }

    void start(const Prospect &prospect, std::stop_token stop = {})
    {
        follow(store().sendSMSAutomatically(prospect, false, stop));
    }
};

TEST_F(SMS, PreparedTextReachesMessagesAsTyped)
{
    ASSERT_EQ(prepare(alix()), u"done"_s);
    const QUrl url = desktop.workspace.opened.back();
    EXPECT_EQ(url.toEncoded(), "sms:+33639980010?body=A%20%26%20B%3F%0Ac%2Bd%20%23%C3%A9");
    EXPECT_EQ(desktop.pasteboard.content, u"A & B?\nc+d #é"_s);
    EXPECT_EQ(store().status(alix()), nullptr) << "preparing records nothing";
    desktop.workspace.accepts = false;
    EXPECT_EQ(prepare(alix()), u"Messages n’a pas pu être ouvert."_s);
}

TEST_F(SMS, PreparedWithAFileGoesThroughTheComposeService)
{
    const QString path = attach(alix());
    ASSERT_EQ(prepare(alix()), u"done"_s);
    const Composition &composition = desktop.sharing.message.performed.back();
    EXPECT_EQ(composition.recipients, QStringList{u"+33639980010"_s});
    EXPECT_EQ(composition.file, QUrl::fromLocalFile(path));
    EXPECT_TRUE(desktop.workspace.opened.isEmpty());
    EXPECT_EQ(desktop.pasteboard.content, composition.body);
    desktop.sharing.message.accepts = false;
    EXPECT_EQ(prepare(alix()), u"Ce fichier ne peut pas être joint à un message SMS/MMS."_s);
    desktop.sharing.present = false;
    EXPECT_EQ(prepare(alix()), u"Le service Messages n’est pas disponible sur ce Mac."_s);
}

TEST_F(SMS, ChecksRunInTheirOrder)
{
    QFile::remove(attach(alix()));
    const Prospect withPhone = alix();
    ASSERT_FALSE(store().update(withPhone, {u"ALIX"_s, {}, {}, *withPhone.email, {}, {}}));
    store().setStopped(true, alix());
    EXPECT_EQ(prepare(alix()), stopped);
    start(withPhone);
    store().setStopped(false, alix());
    const QString noMobile = u"Aucun numéro de mobile n’est renseigné pour ce contact."_s;
    EXPECT_EQ(prepare(alix()), noMobile);
    start(withPhone);
    EXPECT_EQ(prepare(withPhone), gone);
    ASSERT_FALSE(store().update(alix(), {u"ALIX"_s, {}, withPhone.phone, {}, {}, {}}));
    start(alix());
    EXPECT_EQ(answers, (QStringList{stopped, noMobile, gone}));
    EXPECT_FALSE(store().automaticSMSBusy());
    EXPECT_TRUE(desktop.pasteboard.content.isEmpty() && desktop.scripts.sources.isEmpty());
}

TEST_F(SMS, TestMessagesIgnoreStopAndRememberTheNumber)
{
    EXPECT_EQ(store().prepareTestSMS(u"06 39 98 00"_s, u"inconnu"_s),
              u"Saisissez un numéro de test valide."_s);
    EXPECT_EQ(store().prepareTestSMS(u"06 39 98 00 10"_s, u"inconnu"_s),
              u"Sélectionnez un modèle de message."_s);
    EXPECT_EQ(store().testNumber(), u"06 39 98 00 00"_s);
    store().setStopped(true, alix());
    EXPECT_EQ(store().prepareTestSMS(u"06.39.98.00.10"_s, ProspectStore::defaultMessageID),
              std::nullopt);
    EXPECT_EQ(store().testNumber(), u"06.39.98.00.10"_s);
    EXPECT_EQ(desktop.workspace.opened.back().path(), u"+33639980010"_s);
}

TEST_F(SMS, AutomaticSendsKeepElevenSecondsFromTheLastSuccess)
{
    start(alix());
    EXPECT_EQ(answers.size(), 1) << "the first one never waits";
    const QStringList hidden{u"com.apple.MobileSMS"_s, u"com.apple.iChat"_s};
    EXPECT_EQ(desktop.workspace.hidden, hidden);
    EXPECT_EQ(desktop.workspace.fronts, 1);
    desktop.clock.advance(3s);
    desktop.scripts.answer = [](const QString &) { return ScriptNotCreated{}; };
    start(chloe());
    EXPECT_EQ(desktop.clock.pending(), std::vector{8000ms});
    desktop.clock.advance(7999ms);
    EXPECT_EQ(desktop.scripts.sources.size(), 1);
    desktop.clock.advance(1ms);
    EXPECT_EQ(answers.back(), u"L’envoi direct n’a pas pu être préparé dans Messages."_s);
    desktop.scripts.answer = [](const QString &) { return ScriptDone{}; };
    start(chloe());
    EXPECT_EQ(answers.back(), u"done"_s) << "a failure does not restart the interval";
    desktop.clock.set(desktop.clock.now() - 1h);
    start(alix());
    EXPECT_EQ(desktop.clock.pending(), std::vector{11000ms})
        << "a clock set back costs 11 s at most";
    desktop.clock.advance(11s);
}

TEST_F(SMS, OneAutomaticSendIsUnderWayAndItsWaitCanBeGivenUp)
{
    start(alix());
    start(chloe());
    start(alix());
    EXPECT_EQ(answers.back(),
              u"Un autre SMS automatique est déjà en cours. Attendez la fin de cet envoi."_s);
    store().setStopped(true, chloe());
    desktop.clock.advance(11s);
    EXPECT_EQ(answers.back(), stopped) << "STOP that came during the wait";
    start(alix());
    desktop.clock.set(*store().lastAutomaticSMSSentAt());
    std::stop_source source;
    start(alix(), source.get_token());
    source.request_stop();
    desktop.clock.advance(0s);
    EXPECT_EQ(answers.back(), u"given up"_s);
    EXPECT_EQ(scripts.messages.carried.size(), 2);
    EXPECT_FALSE(store().automaticSMSBusy());
}

TEST_F(SMS, QuotaIsRefusedBeforeTheBusyFlagIsLookedAt)
{
    for (int key = 0; key < ProspectStore::standardSMSMonthlyRecipientLimit - 1; ++key) {
        Prospect other;
        other.id = u"k%1"_s.arg(key);
        store().recordSentNow(other);
    }
    start(alix());
    store().recordSentNow(alix());
    start(alix());
    start(chloe());
    EXPECT_TRUE(answers.back().startsWith(u"Limite mensuelle atteinte"_s));
    EXPECT_TRUE(prepare(chloe()).startsWith(u"Limite mensuelle"_s));
    EXPECT_EQ(store().prepareSMS(chloe(), true), std::nullopt);
    desktop.clock.advance(11s);
}

} // namespace
