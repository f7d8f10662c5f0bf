#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class Tracking : public StoreTest {
protected:
    const SendStatus &status() { return *store().status(alix()); }
    std::size_t recipients() { return std::size_t(store().smsRecipientsSentThisMonth()); }
};

TEST_F(Tracking, UntickingKeepsEveryDate)
{
    for (int send = 0; send < 3; ++send) {
        store().recordSentNow(alix());
        desktop.clock.advance(1min);
    }
    const Instant last = desktop.clock.now() - 1min;
    store().setComment(u" rappeler "_s, alix());
    store().setSent(false, alix());
    EXPECT_FALSE(status().sent);
    EXPECT_EQ(status().sentAt, last);
    EXPECT_EQ(status().sendHistory->size(), 3U);
    EXPECT_EQ(status().comment, u"rappeler"_s);
    const QJsonObject written = object(u"suivi-envois.json"_s).value(alix().id).toObject();
    EXPECT_EQ(written.value(u"sendHistory"_s).toArray().size(), 3);
    EXPECT_EQ(recipients(), 1U);
}

TEST_F(Tracking, TickingTwiceAddsOneDateConfirmingTwiceAddsTwo)
{
    store().setSent(true, alix());
    const Instant first = desktop.clock.now();
    desktop.clock.advance(1h);
    store().setSent(true, alix());
    EXPECT_EQ(store().sendHistory(alix()), std::vector{first});
    store().recordSentNow(alix());
    store().recordSentNow(alix());
    EXPECT_EQ(store().sendHistory(alix()).size(), 3U);
    EXPECT_EQ(recipients(), 1U);
}

TEST_F(Tracking, AnEntryThatCarriesNothingGoes)
{
    store().setComment(u" \n"_s, alix());
    store().setSent(false, alix());
    EXPECT_EQ(store().status(alix()), nullptr);

    store().setStopped(true, alix());
    store().setSent(false, alix());
    ASSERT_NE(store().status(alix()), nullptr) << "STOP outlives everything";
    EXPECT_EQ(status().comment, u""_s);
    store().setStopped(false, alix());
    EXPECT_EQ(store().status(alix()), nullptr);

    store().setEmailSent(false, alix());
    EXPECT_EQ(store().emailStatus(alix()), nullptr);
}

TEST_F(Tracking, RecordsFromBeforeHistoriesKeepTheirDate)
{
    desktop.writeFile(u"suivi-envois.json"_s,
                      R"({"0639980010":{"sent":true,"sentAt":"2026-01-05T10:00:00Z"}})");
    const auto date = instantFromText("2026-01-05T10:00:00Z");
    EXPECT_EQ(store().sendHistory(alix()), std::vector{*date});
    store().setSent(false, alix());
    EXPECT_EQ(status().sendHistory, std::vector{*date});
}

TEST_F(Tracking, AManualDateReplacesTheNewestOnly)
{
    const Instant manual = desktop.clock.now() - 48h;
    store().setDate(manual, chloe());
    EXPECT_EQ(store().sendHistory(chloe()), std::vector{manual});
    const Instant now = desktop.clock.now();
    store().recordSentNow(chloe());
    store().recordSentNow(chloe());
    store().setDate(manual, chloe());
    EXPECT_EQ(store().sendHistory(chloe()), (std::vector{manual, now, manual}));
    EXPECT_EQ(store().status(chloe())->sentAt, manual);
    EXPECT_EQ(recipients(), 1U) << "dates set by hand count nobody";
}

TEST_F(Tracking, StopLeavesBothSelectionsAndIsWrittenOnlyWhileTrue)
{
    store().setSelectedForSending(true, alix());
    store().setSelectedForEmailSending(true, alix());
    store().setStopped(true, alix());
    EXPECT_TRUE(store().sendSelection().empty());
    EXPECT_TRUE(store().emailSendSelection().empty());
    store().setSelectedForSending(true, alix());
    store().setSelectedForEmailSending(true, alix());
    EXPECT_TRUE(store().sendSelection().empty());
    EXPECT_TRUE(store().emailSendSelection().empty());
    EXPECT_TRUE(store().isStopped(alix()));
    store().setComment(u"a demandé l’arrêt"_s, alix());
    store().setStopped(false, alix());
    EXPECT_FALSE(object(u"suivi-envois.json"_s).value(alix().id).toObject().contains(u"stopped"_s));
    EXPECT_EQ(status().comment, u"a demandé l’arrêt"_s);
}

TEST_F(Tracking, SelectionsRefuseContactsThatCannotBeReached)
{
    const Prospect &bruno = *store().prospect(u""_s);
    store().setSelectedForSending(true, bruno);
    store().setSelectedForEmailSending(true, chloe());
    EXPECT_TRUE(store().sendSelection().empty());
    EXPECT_TRUE(store().emailSendSelection().empty());
    store().setSelectedForSending(true, chloe());
    store().setSelectedForSending(false, alix());
    EXPECT_EQ(store().sendSelection(), IdSet{chloe().id});
    store().clearSendSelection();
    EXPECT_TRUE(store().sendSelection().empty());
}

TEST_F(Tracking, EmailsHaveTheirOwnHistoryAndNoQuota)
{
    store().setEmailSent(true, alix());
    store().setEmailSent(true, alix());
    store().recordEmailSentNow(alix());
    store().setEmailSent(false, alix());
    EXPECT_EQ(store().emailStatus(alix())->sendHistory->size(), 2U);
    EXPECT_FALSE(store().emailStatus(alix())->sent);
    EXPECT_EQ(store().status(alix()), nullptr);
    EXPECT_EQ(recipients(), 0U);
    EXPECT_EQ(object(u"suivi-envois-mails.json"_s).size(), 1);
}

class Quota : public StoreTest {
protected:
    void fillMonth(int count)
    {
        QJsonArray keys;
        for (int key = 0; key < count; ++key)
            keys.append(u"k%1"_s.arg(key));
        desktop.writeFile(u"quota-destinataires-sms.json"_s,
                          QJsonDocument(QJsonObject{{u"2026-03"_s, keys}}).toJson());
    }
};

TEST_F(Quota, TheTwoHundredFiftyFirstRecipientOfTheMonthIsRefused)
{
    fillMonth(249);
    EXPECT_EQ(store().smsQuotaError(alix(), false), std::nullopt);
    store().recordSentNow(alix());
    EXPECT_EQ(store().remainingStandardSMSRecipientsThisMonth(), 0);
    EXPECT_EQ(store().smsQuotaError(alix(), false), std::nullopt) << "already counted this month";
    EXPECT_EQ(
        store().smsQuotaError(chloe(), false),
        u"Limite mensuelle atteinte : 250 destinataires SMS ont déjà été contactés ce mois-ci. Cochez « Forfait Free Pro » uniquement si votre forfait autorise les envois sans cette limite."_s);
    EXPECT_EQ(store().smsQuotaError(chloe(), true), std::nullopt);
    store().recordSentNow(chloe());
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 251);
    EXPECT_EQ(store().remainingStandardSMSRecipientsThisMonth(), 0);
    desktop.clock.advance(24h * 31);
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 0);
}

TEST_F(Quota, MonthsAreTheUsersOwn)
{
    const auto month = [this](const char *instant) {
        desktop.clock.set(*instantFromText(instant));
        store().recordSentNow(alix());
    };
    month("2026-01-31T22:30:00Z"); // 23:30 in Paris
    month("2026-01-31T23:30:00Z"); // 00:30 in Paris
    const QJsonObject written = object(u"quota-destinataires-sms.json"_s);
    EXPECT_EQ(written.keys(), (QStringList{u"2026-01"_s, u"2026-02"_s}));
    EXPECT_EQ(written.value(u"2026-01"_s).toArray(), QJsonArray{alix().id});
}

TEST_F(Quota, CountsAreRebuiltFromHistoriesOnlyWhenTheFileHasNone)
{
    desktop.writeFile(u"suivi-envois.json"_s,
                      R"({"0639980010":{"sent":true,"sentAt":"2026-03-02T10:00:00Z",
                          "sendHistory":["2025-12-31T23:30:00Z","2026-03-02T10:00:00Z"]},
                          "0639980012":{"sent":true,"sentAt":"2026-03-01T10:00:00Z"},
                          "0639980099":{"sent":true,"sentAt":"2026-03-01T10:00:00Z"}})");
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 2) << "strangers to the list do not count";
    EXPECT_TRUE(store().smsMonthlyRecipientsByMonth().contains(u"2026-01"_s));
    EXPECT_EQ(object(u"quota-destinataires-sms.json"_s).size(), 2);
    fillMonth(7);
    restart();
    EXPECT_EQ(store().smsRecipientsSentThisMonth(), 7);
}

TEST_F(Quota, WritingsOfOneNumberCountOnce)
{
    ASSERT_EQ(store().add(u"E"_s, u"06 39 98 00 50"_s, {}, u"29"_s, {}), std::nullopt);
    ASSERT_EQ(store().add(u"F"_s, {}, u"f@example.org"_s, u"29"_s, {}), std::nullopt);
    Prospect dotted = *store().prospect(u"0639980050"_s);
    dotted.phone = u"06.39.98.00.50"_s;
    store().recordSentNow(*store().prospect(u"0639980050"_s));
    store().recordSentNow(dotted);
    dotted.phone = u"+33 6 39 98 00 50"_s;
    store().recordSentNow(dotted);
    store().recordSentNow(*store().prospect(u"email:f@example.org"_s));
    EXPECT_EQ(*store().smsMonthlyRecipientsByMonth().find(u"2026-03"_s),
              (TextSet{u"0639980050"_s, u"33639980050"_s, u"email:f@example.org"_s}));
}

} // namespace
