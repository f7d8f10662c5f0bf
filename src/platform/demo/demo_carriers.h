#pragma once

#include "platform/carriers.h"
#include "platform/clock.h"
#include "platform/demo/demo_messages.h"

namespace quenoria {

/// Carriers to look at: what is sent through them stays in the outbox, and none can be chosen. Once
/// the replies are listened to, the first one who may answer says STOP.
class DemoCarriers : public Carriers {
    Q_OBJECT

public:
    DemoCarriers(DemoMessages &messages, const Clock &clock);

    void watch() override {}
    [[nodiscard]] std::vector<Carrier> found() const override;
    [[nodiscard]] QString chosen() const override;
    void choose(const QString &) override {}
    [[nodiscard]] bool takesFiles() const override { return true; }
    [[nodiscard]] QString handover() const override;
    [[nodiscard]] bool isFixed() const override { return true; }
    void unlock(const QString &, const QString &, PinUse) override {}
    void forgetPin(const QString &) override {}
    [[nodiscard]] QFuture<TransportResult> send(const Composition &message) override;
    void listen(const MayRead &mayRead) override { m_mayRead = mayRead; }

private:
    void answerLater(const QString &handle);
    void answer(const QString &handle);

    DemoMessages &m_messages;
    const Clock &m_clock;
    MayRead m_mayRead;
    bool m_hasAnswered = false; ///< one STOP shows what it does
};

} // namespace quenoria
