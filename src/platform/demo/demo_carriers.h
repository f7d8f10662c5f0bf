#pragma once

#include "platform/carriers.h"
#include "platform/demo/demo_messages.h"

namespace quenoria {

/// Carriers to look at: what is sent through them stays in the outbox, and none can be chosen.
class DemoCarriers : public Carriers {
    Q_OBJECT

public:
    explicit DemoCarriers(DemoMessages &messages) : m_messages(messages) {}

    void watch() override {}
    [[nodiscard]] std::vector<Carrier> found() const override;
    [[nodiscard]] QString chosen() const override;
    void choose(const QString &) override {}
    [[nodiscard]] bool takesFiles() const override { return true; }
    [[nodiscard]] QString handover() const override;
    [[nodiscard]] bool isFixed() const override { return true; }
    void unlock(const QString &, const QString &) override {}
    [[nodiscard]] QFuture<TransportResult> send(const Composition &message) override;
    void listen(const MayRead &) override {}

private:
    DemoMessages &m_messages;
};

} // namespace quenoria
