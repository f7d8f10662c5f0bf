#include "ui/queue/queue_state.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

using enum QueueState::Phase;
using enum QueueAction;

const QStringList both{u"a"_s, u"b"_s};
const Refusal panne = u"panne"_s;
const Refusal doubt = u"Cet envoi a été interrompu. Le message est peut-être parti."_s;
const Refusal unsaved = u"Le dernier message est parti, mais son suivi n’est pas encore "
                        "enregistré : la file s’est arrêtée."_s;
const DoubtSettled left{u"a"_s, true};
const DoubtSettled leftLater{u"b"_s, true};
const DoubtSettled stayed{u"a"_s};
const Circumstances byHand{false, true};
const Circumstances automatic{true, true};
const Circumstances deleted{true, false};
const Circumstances asking{true, true, true};
const Removed secondRemoved{{u"b"_s}};
const Removed engagedRemoved{{u"a"_s, u"b"_s}, u"a"_s};

/// A queue of two contacts, of which so many are done.
QueueState at(QueueState::Phase phase, int done = 0, const Refusal &error = {})
{
    return {both.mid(done), done, 2, phase, error};
}

QueueState passedOver(QueueState::Phase phase, int done)
{
    QueueState state = at(phase, done);
    state.servedAs = u"A"_s;
    return state;
}

/// The same, with those who said STOP left out of it.
QueueState without(const QStringList &held, QueueState::Phase phase, int done, QStringList ids)
{
    QueueState state = at(phase, done);
    state.queueIDs = std::move(ids);
    state.heldIDs = held;
    return state;
}

const StopRepliesChanged firstSaysStop{{u"a"_s}, {}};
const StopRepliesChanged handedOverSaysStop{{u"a"_s}, {}, u"a"_s};
const StopRepliesChanged firstIsStopped{{}, {u"a"_s}};
const StopRepliesChanged nobodySaysStop{};

struct Row {
    const char *name;
    QueueState before;
    QueueEvent event;
    Circumstances circumstances;
    Step after;
};

void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }

const Row rows[] = {
    {"Shown", {}, Opened{both}, byHand, {at(waiting)}},
    {"ShownSwitchedOn", {}, Opened{both}, automatic, {at(running), startRun}},
    {"ShownEmptyStartsNothing", {}, Opened{}, automatic, {}},

    {"Prepare", at(waiting), PrimaryPressed{}, byHand, {at(waiting), prepare}},
    {"PrepareAgain", at(prepared), PrimaryPressed{}, byHand, {at(prepared), prepare}},
    {"PrimaryStartsARun", at(prepared), PrimaryPressed{}, automatic, {at(running), startRun}},
    {"PrimaryDuringARun", at(running), PrimaryPressed{}, automatic, {at(running)}},
    {"PrimaryWhileARunStops", at(running), PrimaryPressed{}, byHand, {at(running)}},
    {"Refusal", at(prepared), PrepareAnswered{panne}, byHand, {at(waiting, 0, panne)}},
    {"Prepared", at(waiting, 1, panne), PrepareAnswered{}, byHand, {at(prepared, 1)}},
    {"PreparedOnceClosed", at(closed), PrepareAnswered{}, byHand, {at(closed)}},

    {"Confirm", at(prepared), Confirmed{}, byHand, {at(waiting, 1), record}},
    {"ConfirmTheLast", at(prepared, 1), Confirmed{}, byHand, {at(closed, 2), record}},
    {"ConfirmTwiceRecordsOnce", at(waiting, 1), Confirmed{}, byHand, {at(waiting, 1)}},
    {"ConfirmDuringARun", at(running), Confirmed{}, automatic, {at(running)}},
    {"ConfirmADeletedContact", at(prepared), Confirmed{}, deleted, {at(waiting, 1)}},
    {"Skip", at(waiting, 0, panne), Skipped{}, byHand, {at(waiting, 1), deselect}},
    {"SkipTheLast", at(prepared, 1), Skipped{}, byHand, {at(closed, 2), deselect}},
    {"SkipDuringARun", at(running), Skipped{}, automatic, {at(running)}},

    {"SwitchedOn", at(waiting, 1, panne), SwitchedOn{}, automatic, {at(running, 1), startRun}},
    {"SwitchedOffAndOnDuringARun", at(running), SwitchedOn{}, automatic, {at(running)}},
    {"SwitchedOnWithNothingLeft", at(waiting, 2), SwitchedOn{}, automatic, {at(waiting, 2)}},
    {"SwitchedOnOnceClosed", at(leaving), SwitchedOn{}, automatic, {at(leaving)}},

    {"ShownWithAQuestion", {}, Opened{both}, asking, {at(waiting), ask}},
    {"PrimaryWithAQuestion", at(prepared), PrimaryPressed{}, asking, {at(prepared), ask}},
    {"Insisted", at(prepared), RunInsisted{}, automatic, {at(running), startRun}},
    {"InsistedWithAnotherQuestion", at(waiting), RunInsisted{}, asking, {at(waiting), ask}},
    {"InsistedOnceSwitchedOff", at(waiting), RunInsisted{}, byHand, {at(waiting)}},
    {"InsistedTwice", at(running), RunInsisted{}, automatic, {at(running)}},
    {"InsistedOnceClosed", at(closed), RunInsisted{}, automatic, {at(closed)}},

    {"Removed", at(waiting), secondRemoved, byHand, {{{u"a"_s}, 0, 1, waiting, {}}}},
    {"RemovedInARun", at(running), engagedRemoved, automatic, {{{u"a"_s}, 0, 1, running, {}}}},
    {"RemovedTheRefused",
     at(waiting, 0, panne),
     Removed{{u"a"_s}},
     byHand,
     {{{u"b"_s}, 0, 1, waiting, {}}}},
    {"RemovedOnceLeaving", at(leaving), secondRemoved, automatic, {at(leaving)}},

    {"Turn", at(running), TurnReached{}, automatic, {at(running), send}},
    {"TurnSwitchedOff", at(running), TurnReached{}, byHand, {at(waiting)}},
    {"TurnOfADeletedContact", at(running), TurnReached{}, deleted, {at(waiting)}},
    {"TurnOnceClosedSendsNothing", at(leaving), TurnReached{}, automatic, {at(closed)}},
    {"Sent", at(running), SendAnswered{}, automatic, {at(running, 1), deselect}},
    {"SentTheLast", at(running, 1), SendAnswered{}, automatic, {at(closed, 2), deselect}},
    {"SentThoughDeleted", at(running), SendAnswered{}, deleted, {at(running, 1), deselect}},
    {"SentOnceClosed", at(leaving), SendAnswered{}, automatic, {at(closed, 1), deselect}},
    {"SentButNotSaved",
     at(running),
     SendAnswered{Sent{panne}},
     automatic,
     {at(waiting, 1, unsaved), deselect}},
    {"Refused", at(running), SendAnswered{Refused{panne}}, automatic, {at(waiting, 0, panne)}},
    {"RefusedForADeletedContact",
     at(running),
     SendAnswered{Refused{panne}},
     deleted,
     {at(waiting)}},
    {"GivenUp", at(running, 1), SendAnswered{Refused{}}, automatic, {at(waiting, 1)}},
    {"InDoubt", at(running), SendAnswered{InDoubt{}}, automatic, {at(waiting, 0, doubt)}},
    {"InDoubtOnceClosed", at(leaving), SendAnswered{InDoubt{}}, automatic, {at(closed, 0, doubt)}},

    {"DoubtedMessageLeft", at(waiting, 0, doubt), left, automatic, {at(waiting, 1), deselect}},
    {"DoubtedMessageStayed", at(waiting, 0, doubt), stayed, automatic, {at(waiting)}},
    {"DoubtAboutALaterContact",
     at(running),
     leftLater,
     automatic,
     {{{u"a"_s}, 1, 2, running, {}}, deselect}},
    {"DoubtAboutTheContactInARun", at(running), left, automatic, {at(running), deselect}},
    {"DoubtAboutAnother", at(prepared), DoubtSettled{u"z"_s}, byHand, {at(prepared)}},

    {"ServedBefore", at(waiting), ServedBefore{u"A"_s}, byHand, {passedOver(waiting, 1)}},
    {"ServedBeforeInARun", at(running), ServedBefore{u"A"_s}, automatic, {passedOver(running, 1)}},
    {"ServedBeforeTheLastStaysOpen",
     at(running, 1),
     ServedBefore{u"A"_s},
     automatic,
     {passedOver(waiting, 2)}},
    {"ServedBeforeOncePrepared", at(prepared), ServedBefore{u"A"_s}, byHand, {at(prepared)}},
    {"ServedBeforeOnceLeaving", at(leaving), ServedBefore{u"A"_s}, automatic, {at(leaving)}},

    {"SaysStop",
     at(running, 0),
     firstSaysStop,
     automatic,
     {without({u"a"_s}, running, 0, {u"b"_s})}},
    {"SaysStopOncePrepared", at(prepared), firstSaysStop, byHand, {at(prepared)}},
    {"SaysStopDuringItsSend", at(running), handedOverSaysStop, automatic, {at(running)}},
    {"StopIgnored",
     without({u"a"_s}, running, 0, {u"b"_s}),
     nobodySaysStop,
     automatic,
     {without({}, running, 0, {u"b"_s, u"a"_s})}},
    {"StopMarked",
     without({u"a"_s}, running, 0, {u"b"_s}),
     firstIsStopped,
     automatic,
     {without({}, running, 0, {u"b"_s})}},
    {"SentTheLastButOneSaidStop",
     without({u"a"_s}, running, 0, {u"b"_s}),
     SendAnswered{},
     automatic,
     {without({u"a"_s}, waiting, 1, {}), deselect}},
    {"SaysStopOnceLeaving", at(leaving), firstSaysStop, automatic, {at(leaving)}},

    {"Close", at(prepared), Closed{}, byHand, {at(closed)}},
    {"CloseDuringARun", at(running), Closed{}, automatic, {at(leaving)}},
    {"CloseTwice", at(leaving), Closed{}, automatic, {at(leaving)}},
};

class QueueRules : public testing::TestWithParam<Row> {};

TEST_P(QueueRules, GiveStateAndAction)
{
    const Row &row = GetParam();
    const Step step = next(row.before, row.event, row.circumstances);
    EXPECT_EQ(step.action, row.after.action);
    EXPECT_EQ(step.state.phase, row.after.state.phase);
    EXPECT_TRUE(step.state == row.after.state);
}

INSTANTIATE_TEST_SUITE_P(All, QueueRules, testing::ValuesIn(rows),
                         [](const auto &test) { return test.param.name; });

} // namespace
