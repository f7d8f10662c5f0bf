#include "backup/memory_of_sends.h"
#include "store/store_fixture.h"

using namespace quenoria;
using namespace quenoria::test;

namespace {

class SendMemory : public StoreTest, public testing::WithParamInterface<Channel> {};

TEST_P(SendMemory, BringsBackTheSendsOfAChannel)
{
    const Prospect contact = alix();
    store().recordSent(GetParam(), contact, *instantFromText("2026-03-01T10:00:00Z"));
    const MemoryOfSends memory = memoryOf(store());
    store().deleteProspects({contact.id});
    EXPECT_EQ(forgottenSends(memory, store()), 1U);
    bringBackSends(memory, store());
    for (const Channel each : allChannels)
        EXPECT_EQ(store().sends(each, contact).size(), each == GetParam() ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Channels, SendMemory, testing::ValuesIn(allChannels));

} // namespace
