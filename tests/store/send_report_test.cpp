#include "store/send_report.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

Instant at(const char *text) { return *instantFromText(text); }

const QTimeZone paris("Europe/Paris");

class SendReports : public StoreTest {
protected:
    SendReports()
    {
        desktop.writeFile(u"quota-destinataires-sms.json"_s,
                          R"({"2026-01":["0639980010","0639980099"],"2025-06":["0639980099"]})");
        desktop.writeFile(u"suivi-envois.json"_s, R"({
            "0639980010":{"sent":true,"sentAt":"2026-02-01T10:00:00Z","stopped":true,
                "sendHistory":["2026-02-01T10:00:00Z","2026-01-31T23:30:00Z",
                               "2026-01-31T22:59:59Z"]},
            "0639980012":{"sent":false,"sentAt":"2026-03-05T10:00:00Z","stopped":true}})");
        desktop.writeFile(u"suivi-envois-mails.json"_s, R"({
            "0639980012":{"sent":true,"sentAt":"2026-03-01T10:00:00Z"},
            "0639980077":{"sent":true,"sentAt":"2026-03-01T10:00:00Z"}})");
    }

    SendReport report(const char *now) { return sendReport(store(), paris, at(now)); }
};

TEST_F(SendReports, CountMonthsOfTheUsersCalendarAndEachRecipientOnce)
{
    EXPECT_EQ(report("2026-03-10T10:00:00Z").months,
              (std::vector<MonthLine>{{QDate(2025, 6, 1), {}, 1},
                                      {QDate(2026, 1, 1), {{{1, 1, 1}}}, 2},
                                      {QDate(2026, 2, 1), {{{2, 1, 1}}}, 0},
                                      {QDate(2026, 3, 1), {{{}, {1, 1, 1}}}, 0}}));
}

TEST_F(SendReports, GroupContactsWithTheMostSendsFirst)
{
    const SendReport all = report("2026-03-10T10:00:00Z");
    EXPECT_EQ(all.departments, (std::vector<GroupLine>{{u"29"_s, 1, 1, {{{3, 1, 1}}}},
                                                       {u"56"_s, 1, 1, {{{}, {1, 1, 1}}}},
                                                       {u"75"_s, 1, 0}}));
    EXPECT_EQ(all.trades, (std::vector<GroupLine>{{u"Fleuriste"_s, 1, 1, {{{3, 1, 1}}}},
                                                  {QString(), 2, 1, {{{}, {1, 1, 1}}}}}));
}

TEST_F(SendReports, SayOfATemplateNoMoreThanTheFilesHold)
{
    // The STOP of the first contact is undated: surely soon for thirty days, perhaps afterwards.
    // That of the second made its record, four days after the e-mail.
    for (const auto &[now, least, most] :
         {std::tuple("2026-03-03T09:00:00Z", 1, 1), {"2026-03-04T10:00:00Z", 0, 1}}) {
        const SendReport all = report(now);
        ASSERT_EQ(all.templates.size(), 2U);
        EXPECT_EQ(all.templates[0],
                  (TemplateLine{Channel::sms, u"1er envoi"_s, {3, 1, 1}, least, most}))
            << now;
        EXPECT_EQ(all.templates[1],
                  (TemplateLine{Channel::email, u"1er envoi e-mail"_s, {1, 1, 1}, 1, 1}));
    }
    store().setComment(u"Rappeler"_s, chloe());
    EXPECT_EQ(report("2026-06-01T10:00:00Z").templates[1].stoppedSoon, 0)
        << "a comment may have made the record";
}

} // namespace
