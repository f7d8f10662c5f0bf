#include "messaging/messaging_fixture.h"
#include "messaging/send_desk.h"

#include <QSemaphore>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto sms = Channel::sms;
constexpr auto email = Channel::email;
const QString intentFile = u".envoi-en-cours"_s;

class Desk : public MessagingTest {
protected:
    ~Desk() override
    {
        gate.release(100);
        settle();
    }

    SendDesk &desk()
    {
        if (!m_desk)
            m_desk = std::make_unique<SendDesk>(store(), desktop.platform());
        return *m_desk;
    }

    /// As a process that was killed and started again.
    void killAndStart()
    {
        const QByteArray left = desktop.file(intentFile);
        m_desk.reset();
        restart();
        if (!left.isNull())
            desktop.writeFile(intentFile, left);
        desk();
    }

    void order(Channel channel, const Prospect &contact)
    {
        follow(desk().order(channel, contact.id, false));
    }

    /// Lets no script end before the gate opens.
    void holdScripts()
    {
        desktop.scripts.answer = [this](const QString &source) {
            gate.acquire();
            return scripts.host.run(source);
        };
    }

    /// Orders without waiting for the end of the script.
    void begin(Channel channel, const Prospect &contact)
    {
        auto task = desk().order(channel, contact.id, false);
        task.then([this](SendOutcome outcome) { answers << said(outcome); });
        QCoreApplication::processEvents();
    }

    void makeUnwritable(const QString &name)
    {
        QFile::remove(QDir(desktop.folders.data()).filePath(name));
        QDir(desktop.folders.data()).mkpath(name + u"/x"_s);
    }
    void makeWritable(const QString &name)
    {
        QDir(QDir(desktop.folders.data()).filePath(name)).removeRecursively();
    }

    QSemaphore gate;

private:
    std::unique_ptr<SendDesk> m_desk;
};

TEST_F(Desk, ASecondOrderForTheSameContactIsNone)
{
    holdScripts();
    for (const Channel channel : {sms, email}) {
        begin(channel, alix());
        begin(channel, alix());
        EXPECT_TRUE(desk().isUnderWay(channel, alix().id));
        EXPECT_EQ(answers, QStringList{u"given up"_s});
        gate.release();
        settle();
        EXPECT_EQ(answers.takeLast(), u"done"_s);
        answers.clear();
    }
    EXPECT_EQ(store().sendHistory(alix()).size() + store().emailHistory(alix()).size(), 2U);
    EXPECT_FALSE(desk().isBusy());
    EXPECT_TRUE(desktop.file(intentFile).isNull());
}

TEST_F(Desk, EmailsWaitForEachOtherAndLookTheContactUpWhenTheirTurnComes)
{
    holdScripts();
    const Prospect first = alix();
    ASSERT_FALSE(store().update(chloe(), {u"CHLOÉ"_s, {}, {}, u"avant@example.org"_s, {}, {}}));
    begin(email, first);
    begin(email, chloe());
    ASSERT_FALSE(store().update(chloe(), {u"CHLOÉ"_s, {}, {}, u"apres@example.org"_s, {}, {}}));
    gate.release(2);
    settle();
    EXPECT_EQ(answers, (QStringList{u"done"_s, u"done"_s}));
    EXPECT_EQ(scripts.mail.sent.back().recipients, QStringList{u"apres@example.org"_s});
}

struct Meanwhile {
    const char *name;
    void (*happens)(ProspectStore &, const Prospect &);
    const char16_t *answer;
    const char16_t *carried; ///< number, if any
};

class DeskAfterAWait : public Desk, public testing::WithParamInterface<Meanwhile> {};

TEST_P(DeskAfterAWait, SendsWhatIsTrueThen)
{
    order(sms, alix());
    begin(sms, chloe());
    const Prospect contact = chloe();
    GetParam().happens(store(), contact);
    scripts.messages.carried.clear();
    desktop.clock.advance(11s);
    EXPECT_EQ(answers.back(), QStringView(GetParam().answer));
    EXPECT_EQ(scripts.messages.carried.value(0).section(u' ', 1, 1),
              QStringView(GetParam().carried));
    EXPECT_TRUE(desktop.file(intentFile).isNull());
}

INSTANTIATE_TEST_SUITE_P(
    Changes, DeskAfterAWait,
    testing::Values(Meanwhile{"Stopped",
                              [](ProspectStore &store, const Prospect &contact) {
                                  store.setStopped(true, contact);
                              },
                              u"Cet abonné a demandé à ne plus être destinataire de SMS.", u""},
                    Meanwhile{"Deleted",
                              [](ProspectStore &store, const Prospect &contact) {
                                  store.deleteProspects({contact.id});
                              },
                              u"given up", u""},
                    Meanwhile{"Corrected",
                              [](ProspectStore &store, const Prospect &contact) {
                                  EXPECT_FALSE(store.update(
                                      contact,
                                      {u"CHLOÉ"_s, {}, u"06 39 98 00 99"_s, {}, u"56"_s, {}}));
                              },
                              u"done", u"+33639980099"},
                    Meanwhile{"WithoutNumber",
                              [](ProspectStore &store, const Prospect &contact) {
                                  EXPECT_FALSE(store.update(
                                      contact,
                                      {u"CHLOÉ"_s, {}, {}, u"chloe@example.org"_s, u"56"_s, {}}));
                              },
                              u"Aucun numéro de mobile n’est renseigné pour ce contact.", u""}),
    [](const auto &test) { return test.param.name; });

TEST_F(Desk, NothingIsSentThatCannotBeNotedBefore)
{
    desk();
    makeUnwritable(intentFile);
    order(sms, alix());
    EXPECT_TRUE(answers.back().startsWith(u"L’envoi n’a pas pu être noté sur le disque"_s));
    EXPECT_TRUE(scripts.messages.carried.isEmpty() && store().sendHistory(alix()).empty());
    makeWritable(intentFile);
    order(sms, alix());
    EXPECT_EQ(answers.back(), u"done"_s);
}

TEST_F(Desk, NoMoreIsSentThanCanBeRecorded)
{
    store();
    makeUnwritable(u"suivi-envois-mails.json"_s);
    order(email, alix());
    EXPECT_EQ(answers.back(), u"done"_s);
    EXPECT_FALSE(desktop.file(intentFile).isNull()) << "the record is not on the disk";
    EXPECT_TRUE(desk().doubts().empty()) << "though nobody needs to be asked";
    order(email, alix());
    EXPECT_TRUE(answers.back().startsWith(u"Impossible d’enregistrer le suivi des e-mails"_s));
    EXPECT_EQ(scripts.mail.sent.size(), 1U);
    makeWritable(u"suivi-envois-mails.json"_s);
    order(email, alix());
    EXPECT_EQ(answers.back(), u"done"_s);
    EXPECT_EQ(store().emailHistory(alix()).size(), 2U);
    EXPECT_TRUE(desktop.file(intentFile).isNull());
}

TEST_F(Desk, WhatWaitedForAnUnrecordedSendDoesNotGo)
{
    store();
    holdScripts();
    ASSERT_FALSE(store().update(chloe(), {u"CHLOÉ"_s, {}, {}, u"chloe@example.org"_s, {}, {}}));
    begin(email, alix());
    begin(email, chloe());
    makeUnwritable(u"suivi-envois-mails.json"_s);
    gate.release(2);
    settle();
    EXPECT_EQ(scripts.mail.sent.size(), 1U);
    EXPECT_TRUE(answers.back().contains(u"Impossible d’enregistrer le suivi des e-mails"_s));
}

/// What the carrier has read of a hundred bytes, and what is said of it a second later.
TEST_F(Desk, ALongHandOverTellsHowFarItIs)
{
    HandOverWatch watch(desktop.platform());
    watch.begin();
    const std::pair<int, QString> steps[] = {
        {10, {}}, {20, {}}, {30, u"30 %"_s}, {0, u"0 %"_s}, {100, u"100 %"_s}};
    for (const auto &[taken, text] : steps) {
        desktop.handOver.set(taken, 100);
        for (int glance = 0; glance < 4; ++glance)
            desktop.clock.advance(250ms);
        EXPECT_EQ(watch.text(), text) << taken;
    }
    desktop.handOver.clear();
    desktop.clock.advance(250ms);
    EXPECT_EQ(watch.text(), QString());
}

/// One e-mail a minute and three a day, counted in the history; a stop ends the wait.
TEST_F(Desk, EmailsThroughTheMailboxKeepItsPaceAndAskForItsPassword)
{
    MailSettings settings(desktop.preferences);
    settings.setPace({1, 3});
    int asked = 0;
    desk().mailTurn().askPasswordWith([&](const std::stop_token &) {
        ++asked;
        desktop.mailbox.place = PasswordPlace::memory;
        return QtFuture::makeReadyFuture();
    });
    order(email, alix());
    order(email, alix());
    EXPECT_EQ(answers.size(), 2) << "the other road has no pace";
    settings.setRoad(MailRoad::mailbox);
    order(email, alix());
    EXPECT_EQ(answers.size(), 2);
    EXPECT_TRUE(desk().mailTurn().notice().endsWith(u"part à 10:01:00"_s));
    desktop.clock.advance(59s);
    EXPECT_EQ(answers.size(), 2);
    desktop.clock.advance(1s);
    settle();
    EXPECT_EQ(answers.size(), 3);
    order(email, alix());
    EXPECT_TRUE(desk().mailTurn().notice().endsWith(u"part le 11/03 à 10:00"_s));
    desk().close();
    desktop.clock.advance(0s);
    EXPECT_EQ(answers.takeLast(), u"given up"_s);
    EXPECT_EQ(desk().mailTurn().notice(), QString());
    EXPECT_EQ(store().emailHistory(alix()).size(), 3U);
    EXPECT_EQ(asked, 1);
}

TEST_F(Desk, ADoubtKeepsTheContactUntilItIsAnswered)
{
    scripts.mail.answer = TransportFailure{u"pas de réponse"_s, Fate::perhapsSent};
    QStringList asked;
    QObject::connect(&desk(), &SendDesk::doubtRaised,
                     [&](const SendIntent &doubt) { asked << doubt.recipient; });
    order(email, alix());
    EXPECT_EQ(answers.back(), u"perhaps: pas de réponse"_s);
    scripts.mail.answer.reset();
    order(email, alix());
    EXPECT_EQ(answers.back(), u"perhaps: "_s + stillInDoubt);
    EXPECT_EQ(desk().prepare(email, alix(), false), stillInDoubt);
    EXPECT_EQ(asked, QStringList(3, u"alix@example.org"_s));
    EXPECT_TRUE(scripts.mail.sent.size() == 1 && store().emailHistory(alix()).empty());

    killAndStart();
    ASSERT_EQ(desk().doubts().size(), 1U);
    desk().answer(desk().doubts()[0], DoubtAnswer::later);
    order(email, alix());
    order(sms, alix());
    EXPECT_EQ(answers.back(), u"done"_s) << "the other channel is free";
    const Instant handedOver = desk().doubts()[0].instant;
    desktop.clock.advance(40 * 24h);
    desk().answer(desk().doubts()[0], DoubtAnswer::left);
    EXPECT_EQ(store().emailHistory(alix()), std::vector{handedOver});
    EXPECT_TRUE(desk().doubts().empty() && desktop.file(intentFile).isNull());
}

TEST_F(Desk, WhatIsUnderWayWhenItGoesIsNoOutcomeAndStaysADoubt)
{
    holdScripts();
    for (const Channel channel : {sms, email})
        begin(channel, alix());
    killAndStart();
    gate.release(2);
    settle();
    EXPECT_EQ(answers, (QStringList{u"abandoned"_s, u"abandoned"_s}));
    EXPECT_EQ(desk().doubts().size(), 2U);
    EXPECT_TRUE(store().sendHistory(alix()).empty() && store().emailHistory(alix()).empty());
}

/// What the files held when the process was killed, and what the next start makes of them.
struct Killed {
    const char *name;
    bool isRecorded;
    bool isCounted;
    std::size_t doubts;
};

class DeskKilled : public Desk, public testing::WithParamInterface<Killed> {};

TEST_P(DeskKilled, TakesUpWhereItWas)
{
    const Killed &killed = GetParam();
    store().recordSentNow(chloe()); // the quota is not rebuilt from nothing
    holdScripts();
    begin(sms, alix());
    const QByteArray intent = desktop.file(intentFile);
    const QByteArray histories = desktop.file(u"suivi-envois.json"_s);
    const QByteArray quota = desktop.file(u"quota-destinataires-sms.json"_s);
    ASSERT_TRUE(intent.contains("+") || intent.contains("06 39 98 00 10")) << intent.constData();
    gate.release();
    desktop.clock.advance(500ms);
    if (!killed.isRecorded)
        desktop.writeFile(u"suivi-envois.json"_s, histories);
    if (!killed.isCounted)
        desktop.writeFile(u"quota-destinataires-sms.json"_s, quota);
    desktop.writeFile(intentFile, intent);
    killAndStart();
    ASSERT_EQ(desk().doubts().size(), killed.doubts);
    if (killed.doubts > 0)
        desk().answer(desk().doubts()[0], DoubtAnswer::left);
    EXPECT_EQ(store().sendHistory(alix()).size(), 1U);
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 2);
    EXPECT_TRUE(desktop.file(intentFile).isNull());
}

INSTANTIATE_TEST_SUITE_P(Between, DeskKilled,
                         testing::Values(Killed{"IntentAndHistory", false, false, 1},
                                         Killed{"HistoryAndQuota", true, false, 0},
                                         Killed{"QuotaAndEnd", true, true, 0}),
                         [](const auto &test) { return test.param.name; });

TEST_F(Desk, AnEarlierSendOfTheSameSecondIsNotTakenForTheDoubtedOne)
{
    order(email, alix());
    scripts.mail.answer = TransportFailure{{}, Fate::perhapsSent};
    desktop.clock.advance(300ms);
    order(email, alix());
    killAndStart();
    ASSERT_EQ(desk().doubts().size(), 1U);
    desk().answer(desk().doubts()[0], DoubtAnswer::stayed);
    EXPECT_EQ(store().emailHistory(alix()).size(), 1U);
}

TEST_F(Desk, ClosedItGivesUpWhatWaitsAndRecordsWhatWent)
{
    order(sms, alix());
    begin(sms, chloe()); // waits for its turn
    holdScripts();
    begin(email, alix());
    desk().close();
    QCoreApplication::processEvents();
    begin(email, chloe());
    EXPECT_EQ(answers.back(), u"given up"_s);
    EXPECT_TRUE(desk().isUnderWay(email, alix().id));
    gate.release(2);
    desktop.clock.advance(0ms);
    EXPECT_FALSE(desk().isBusy());
    EXPECT_EQ(store().emailHistory(alix()).size(), 1U);
    EXPECT_TRUE(store().sendHistory(chloe()).empty());
    desk().reopen();
    desktop.clock.advance(11s);
    order(sms, chloe());
    EXPECT_EQ(store().sendHistory(chloe()).size(), 1U);
}

} // namespace
