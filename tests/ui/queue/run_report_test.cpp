#include "ui/queue/run_report.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

using enum QueueAction;

struct Happening {
    QueueEvent event;
    QueueAction action = none;
};

struct Row {
    const char *name;
    std::vector<Happening> happenings;
    QString summary;
};

void PrintTo(const Row &row, std::ostream *out) { *out << row.name; }

const Happening refusal{SendAnswered{Refused{u"Limite atteinte. Cochez autre chose."_s}}};
const Happening doubt{SendAnswered{InDoubt{}}};

const Row rows[] = {
    {"ConfirmedByHand", {{PrepareAnswered{}}, {Confirmed{}, record}}, u"1 envoyé"_s},
    {"ASecondConfirmationIsNone", {{Confirmed{}, none}}, u"1 en attente"_s},
    {"RefusedThenSent", {refusal, {SendAnswered{}, deselect}}, u"1 envoyé"_s},
    {"RefusedWithItsReason", {refusal}, u"1 refusé (Limite atteinte)"_s},
    {"GivenUpIsNoRefusal", {{SendAnswered{Refused{}}}}, u"1 en attente"_s},
    {"RefusedThenSkipped", {refusal, {Skipped{}, deselect}}, u"1 ignoré"_s},
    {"InDoubt", {doubt}, u"1 en doute"_s},
    {"DoubtThatLeft", {doubt, {DoubtSettled{u"a"_s, true}, deselect}}, u"1 envoyé"_s},
    {"DoubtThatStayed", {doubt, {DoubtSettled{u"a"_s, false}}}, u"1 en attente"_s},
};

class RunReports : public testing::TestWithParam<Row> {};

TEST_P(RunReports, SayWhatBecameOfAContact)
{
    Prospect contact;
    contact.id = u"a"_s;
    contact.label = u"A"_s;
    RunLog log;
    for (const Happening &happening : GetParam().happenings)
        log.note(happening.event, happening.action, contact);
    const RunReport report = log.report({}, {{contact.id, contact.label}});
    EXPECT_EQ(report.contacts.size(), 1U);
    EXPECT_EQ(report.summary(), GetParam().summary);
}

INSTANTIATE_TEST_SUITE_P(All, RunReports, testing::ValuesIn(rows),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
