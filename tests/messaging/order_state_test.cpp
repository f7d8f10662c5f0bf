#include "messaging/order_state.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

using enum OrderPhase;
using enum OrderAction;

const Refusal panne = u"panne"_s;

struct Row {
    const char *name;
    OrderPhase before;
    OrderEvent event;
    OrderStep after;
};

void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }

const Row rows[] = {
    {"Ordered", asked, Asked{}, {waiting, begin, {}}},
    {"OrderedTwiceIsNoOrder", asked, Asked{.underWay = true}, {ended, none, Refused{}}},
    {"OrderedWhileLeaving", asked, Asked{.leaving = true}, {ended, none, Refused{}}},
    {"OrderedInDoubt", asked, Asked{.doubted = true}, {ended, askUser, InDoubt{stillInDoubt}}},
    {"OrderedTwiceAndUnsavedIsSilent",
     asked,
     Asked{.underWay = true, .unsaved = panne},
     {ended, none, Refused{}}},
    {"OrderedUnsaved", asked, Asked{.unsaved = panne}, {ended, none, Refused{panne}}},

    {"IntentWritten", waiting, IntentWritten{}, {handedOver}},
    {"IntentUnwritable", waiting, IntentWritten{panne}, {waiting}},

    {"RefusedByACheckKeepsNoIntent",
     waiting,
     Answered{Refused{panne}},
     {ended, none, Refused{panne}}},
    {"RefusedByTheCarrier",
     handedOver,
     Answered{Refused{panne}},
     {ended, dropIntent, Refused{panne}}},
    {"Sent", handedOver, Answered{Sent{}}, {recording, record, {}}},
    {"InDoubtKeepsTheIntent",
     handedOver,
     Answered{InDoubt{u"?"_s}},
     {ended, askUser, InDoubt{u"?"_s}}},
    {"AnsweredTwiceRecordsOnce", recording, Answered{Sent{}}, {recording}},
    {"AnsweredOnceEnded", ended, Answered{Sent{}}, {ended}},

    {"Recorded", recording, RecordWritten{}, {ended, dropIntent, Sent{}}},
    {"UnrecordedKeepsTheIntent", recording, RecordWritten{panne}, {ended, none, Sent{panne}}},
    {"RecordedUnasked", handedOver, RecordWritten{}, {handedOver}},
};

class OrderRules : public testing::TestWithParam<Row> {};

TEST_P(OrderRules, GivePhaseActionAndOutcome)
{
    const Row &row = GetParam();
    EXPECT_TRUE(next(row.before, row.event) == row.after);
}

INSTANTIATE_TEST_SUITE_P(All, OrderRules, testing::ValuesIn(rows),
                         [](const auto &test) { return test.param.name; });

} // namespace
