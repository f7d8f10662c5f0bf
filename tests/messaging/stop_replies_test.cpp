#include "messaging/messaging_fixture.h"
#include "messaging/send_desk.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString handle = u"+33639980010"_s;

class Replies : public MessagingTest {
protected:
    Replies()
    {
        store().recordSentNow(alix());
        first = desktop.clock.now();
        desktop.preferences.flags[u"ReponsesSTOP"_s] = true;
        start();
    }

    void start()
    {
        desk.reset();
        restart();
        desk = std::make_unique<SendDesk>(store(), desktop.platform());
    }

    /// As a carrier announces it, which asks before.
    void receive(const QString &text, std::chrono::seconds after, const QString &number = handle)
    {
        if (desktop.carriers.mayRead && desktop.carriers.mayRead(number, first + after))
            Q_EMIT desktop.carriers.received({number, text, first + after});
    }

    QStringList waiting()
    {
        QStringList texts;
        for (const StopReply &reply : desk->stopReplies().waiting())
            texts << reply.label.left(4) + u": "_s + reply.message.text;
        return texts;
    }

    ReceivedMessage message(std::size_t place = 0)
    {
        return desk->stopReplies().waiting().at(place).message;
    }

    Instant first;
    std::unique_ptr<SendDesk> desk;
};

TEST_F(Replies, AreThoseOfTheListSinceTheFirstSend)
{
    EXPECT_TRUE(desktop.carriers.mayRead(handle, first + 1s));
    for (const QString &other : {u"+33639980012"_s, u"+33639980099"_s, u""_s, u"Banque"_s})
        EXPECT_FALSE(desktop.carriers.mayRead(other, first + 1s)) << "never written to";
    receive(u"STOP"_s, 0s);
    receive(u"Stoppeur"_s, 1s);
    receive(u"plus tard"_s, 3s);
    receive(u"stop svp"_s, 2s, u"06 39 98 00 10"_s);
    receive(u"STOP"_s, 1s);
    receive(u"STOP"_s, 1s);
    EXPECT_EQ(waiting(), (QStringList{u"ALIX: STOP"_s, u"ALIX: stop svp"_s}));
    store().setStopped(true, alix());
    EXPECT_EQ(waiting(), QStringList());
    EXPECT_FALSE(desktop.carriers.mayRead(handle, first + 9s)) << "there is nothing left to ask";
}

TEST_F(Replies, KeepEveryMessageBackUntilTheUserDecides)
{
    receive(u"STOP"_s, 1s);
    const QString refusal =
        u"Ce contact a répondu STOP : décidez d’abord dans « Réponses STOP » (menu Envois)."_s;
    for (const Channel channel : {Channel::sms, Channel::email}) {
        EXPECT_EQ(desk->prepare(channel, alix(), false), refusal);
        follow(desk->order(channel, alix().id, false));
        EXPECT_EQ(answers.takeLast(), refusal);
    }
    EXPECT_TRUE(desk->doubts().empty());
    desk->stopReplies().ignore(message());
    desktop.clock.advance(11s);
    follow(desk->order(Channel::sms, alix().id, false));
    EXPECT_EQ(answers.takeLast(), u"done"_s);
}

TEST_F(Replies, ComeBackAtTheNextStartUnlessTheyWereDecidedOn)
{
    receive(u"STOP"_s, 1s);
    receive(u"Stop !"_s, 2s);
    desk->stopReplies().ignore(message());
    start();
    receive(u"STOP"_s, 1s);
    receive(u"Stop !"_s, 2s);
    EXPECT_EQ(waiting(), QStringList{u"ALIX: Stop !"_s}) << "nothing but that one was ignored";

    desktop.files.refusal = u"Disque plein"_s;
    desk->stopReplies().markStopped(message());
    EXPECT_TRUE(store().isStopped(alix()));
    desktop.files.refusal.reset();
    start(); // and the mark was lost
    receive(u"Stop !"_s, 2s);
    EXPECT_EQ(waiting().size(), 1);
    desk->stopReplies().markStopped(message());
    store().setStopped(false, alix());
    receive(u"Stop !"_s, 2s);
    EXPECT_EQ(waiting(), QStringList()) << "it was answered";
    for (const auto &[key, value] : desktop.preferences.texts)
        EXPECT_FALSE(value.contains(u"639980010"_s) || value.contains(u"Stop"_s));
}

TEST_F(Replies, AreReadOnceMoreWhenADoubtfulSendTurnsOutToHaveLeft)
{
    desktop.carriers.mayRead = {};
    desk->answer({chloe().id, u"sms"_s, {}, chloe().phone, first - 5s, {}, {}}, DoubtAnswer::left);
    receive(u"STOP"_s, -1s, u"+33639980012"_s);
    EXPECT_EQ(waiting(), QStringList{u"CHLO: STOP"_s});
    desk->stopReplies().setOn(false);
    EXPECT_EQ(waiting(), QStringList());
    EXPECT_FALSE(desktop.carriers.mayRead) << "off, nothing is read";
}

} // namespace
