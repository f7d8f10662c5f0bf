#include "store/channel_records.h"
#include "store/contact_dossier.h"
#include "store/send_report.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// What holds of each channel, whichever there are.
class EachChannel : public StoreTest, public testing::WithParamInterface<Channel> {
protected:
    const Channel channel = GetParam();
    const std::size_t place = std::size_t(channel);
    const ChannelRecords &records = channelRecords(channel);
};

TEST_P(EachChannel, KeepsWhatIsItsOwnAndNothingOfAnother)
{
    const Instant date = *instantFromText("2026-03-01T10:00:00Z");
    store().recordSent(channel, alix(), date);
    store().select(channel, true, alix());
    const QString id = store().createTemplate(channel, {{}, u"Relance"_s, {}, u"Corps"_s});
    store().assignTemplate(channel, id, alix());
    EXPECT_TRUE(store().holds(records.statuses, alix().id));
    EXPECT_TRUE(store().holds(records.assignments, alix().id));
    restart();
    for (const Channel each : allChannels) {
        const bool isIt = each == channel;
        EXPECT_EQ(store().sends(each, alix()).size(), isIt ? 1U : 0U);
        EXPECT_EQ(store().templates(each).size(), isIt ? 2U : 1U);
        EXPECT_EQ(store().assignedTemplate(each, alix()).id == id, isIt);
    }
    EXPECT_EQ(!store().smsMonthlyRecipientsByMonth().find(u"2026-03"_s), !records.monthly);
    const auto dossier = contactDossier(store(), alix().id);
    EXPECT_EQ(dossier->channels[place].history, std::vector<Instant>{date});
    EXPECT_EQ(dossier->channels[place].message.body, u"Corps"_s);
    const SendReport report = sendReport(store(), QTimeZone::utc(), date);
    EXPECT_EQ(report.months.back().sends[place].recipients, 1);
    Prospect gone = alix();
    store().deleteProspects({gone.id});
    EXPECT_TRUE(store().sends(channel, gone).empty());
    EXPECT_FALSE(store().holds(records.assignments, gone.id));
}

TEST_P(EachChannel, SelectsNobodyWhoWantsNoMessage)
{
    store().select(channel, true, alix());
    EXPECT_TRUE(store().isSelected(channel, alix()));
    store().setStopped(true, alix());
    EXPECT_FALSE(store().isSelected(channel, alix()));
    store().select(channel, true, alix());
    EXPECT_TRUE(store().selection(channel).empty());
}

INSTANTIATE_TEST_SUITE_P(Channels, EachChannel, testing::ValuesIn(allChannels),
                         [](const auto &test) {
                             return channelRecords(test.param).name.toStdString();
                         });

} // namespace
