#include "platform/task_scope.h"

#include "support/fake_clock.h"

#include <QCoroFuture>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Owner {
    QCoro::Task<> work(FakeClock &clock, QStringList &seen)
    {
        const TaskScope::Lease lease = tasks.lease();
        const QFuture<void> pause = clock.sleep(1s, lease.token());
        co_await pause;
        seen << (lease.isAbandoned() ? u"abandoned"_s
                 : lease.isOver()    ? u"cancelled"_s
                                     : u"done"_s);
    }

    TaskScope tasks;
};

struct Meanwhile {
    const char *name;
    void (*happens)(std::unique_ptr<Owner> &, FakeClock &, QStringList &);
    QStringList seen;
};

class Scope : public testing::TestWithParam<Meanwhile> {};

TEST_P(Scope, TellsWhatItLaunchedWhatBecameOfTheOwner)
{
    FakeClock clock;
    QStringList seen;
    auto owner = std::make_unique<Owner>();
    owner->work(clock, seen);
    EXPECT_FALSE(owner->tasks.isIdle());
    GetParam().happens(owner, clock, seen);
    clock.advance(1s);
    EXPECT_EQ(seen, GetParam().seen);
    EXPECT_TRUE(!owner || owner->tasks.isIdle());
}

INSTANTIATE_TEST_SUITE_P(
    Owners, Scope,
    testing::Values(Meanwhile{"Stays", [](auto &, auto &, auto &) {}, {u"done"_s}},
                    Meanwhile{"Goes",
                              [](auto &owner, auto &clock, auto &) {
                                  owner.reset();
                                  EXPECT_TRUE(clock.pending().empty()) << "it sleeps on";
                              },
                              {u"abandoned"_s}},
                    Meanwhile{"CancelsAndGoesOn",
                              [](auto &owner, auto &clock, auto &seen) {
                                  owner->tasks.cancel();
                                  EXPECT_TRUE(owner->tasks.isIdle());
                                  owner->work(clock, seen);
                              },
                              {u"cancelled"_s, u"done"_s}}),
    [](const auto &test) { return test.param.name; });

} // namespace
