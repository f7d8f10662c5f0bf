#include "platform/linux/sms_carriers.h"
#include "support/fake_desktop.h"
#include "support/fake_keyring.h"

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// A modem whose card asks for its PIN when the test wants it.
struct LockedRoad : SmsRoad {
    Carrier carrier{.id = u"modem:1"_s, .name = {}, .words = {}, .command = {}, .road = {}};
    PinAnswer answer{PinAnswer::Kind::taken};
    QStringList pins;
    bool isWatched = false;

    QString kind() const override { return u"modem"_s; }
    bool takesFiles() const override { return false; }
    QString handover() const override { return {}; }
    std::shared_ptr<MessagesTransport> transport(const QString &) const override { return {}; }
    void watch() override { isWatched = true; }
    std::vector<Carrier> found() const override { return {carrier}; }
    void listen(const QString &, const MayRead &) override {}
    void unlock(const QString &, const QString &pin) override
    {
        pins << pin;
        Q_EMIT pinAnswered(answer);
    }

    /// What it was given at once.
    QStringList ask()
    {
        for (const auto state : {CarrierState::ready, CarrierState::asksForPin}) {
            carrier.state = state;
            Q_EMIT changed();
            Q_EMIT changed();
        }
        settle();
        return std::exchange(pins, {});
    }
};

TEST(KeptPins, AreGivenAgainAsTheUserWantedAndNeverToBlockACard)
{
    MemoryPreferences preferences;
    FakeKeyring keyring;
    LockedRoad *modem = nullptr;
    const auto start = [&] {
        SmsCarriers::Roads roads;
        roads.push_back(std::make_unique<LockedRoad>());
        modem = static_cast<LockedRoad *>(roads.front().get());
        return std::make_unique<SmsCarriers>(preferences, keyring, std::move(roads));
    };
    auto carriers = start();
    carriers->choose(u"modem:1"_s);
    const auto type = [&](const QString &pin, PinUse use) {
        carriers->unlock(u"modem:1"_s, pin, use);
        settle();
        modem->pins.clear();
    };
    const QStringList none, kept{u"1234"_s};
    type(u"1234"_s, PinUse::once);
    EXPECT_EQ(modem->ask(), none);
    EXPECT_TRUE(keyring.kept.empty()) << "nobody said so";
    type(u"1234"_s, PinUse::kept);
    EXPECT_EQ(modem->ask(), kept);
    carriers = start();
    EXPECT_TRUE(modem->isWatched) << "from the start on";
    EXPECT_EQ(modem->ask(), kept);
    modem->carrier.pinTries = 2;
    EXPECT_EQ(modem->ask(), none) << "the next wrong one leaves a single try";
    modem->carrier.pinTries.reset();
    modem->answer.kind = PinAnswer::Kind::failed;
    EXPECT_EQ(modem->ask(), kept);
    modem->answer.kind = PinAnswer::Kind::wrong;
    EXPECT_EQ(modem->ask(), kept);
    EXPECT_EQ(modem->ask(), none);
    EXPECT_TRUE(keyring.kept.empty()) << "it is another card's";
    modem->answer.kind = PinAnswer::Kind::taken;
    type(u"1234"_s, PinUse::kept);
    carriers->choose(u"telephone:1"_s);
    EXPECT_EQ(modem->ask(), none) << "another one is chosen";
    for (const auto &[key, value] : preferences.texts)
        EXPECT_NE(value, kept.constFirst()) << key.toStdString();
}

} // namespace
