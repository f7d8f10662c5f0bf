#pragma once

#include "platform/demo/outbox.h"
#include "platform/sharing_services.h"
#include "platform/system_log.h"

#include <functional>

namespace quenoria {

/// Accepts every composition; one that could not be kept costs a line of the log.
class DemoCompose : public ComposeService {
public:
    using Keep = std::function<TransportResult(const Composition &)>;

    DemoCompose(Keep keep, SystemLog &log) : m_keep(std::move(keep)), m_log(log) {}

    [[nodiscard]] bool canPerform(const Composition &) const override { return true; }
    void perform(const Composition &composition) override;

private:
    Keep m_keep;
    SystemLog &m_log;
};

/// Compose services that keep the message, with its file, in the outbox.
class DemoSharing : public SharingServices {
public:
    DemoSharing(Outbox &outbox, SystemLog &log);

    [[nodiscard]] ComposeService *composeMessage() override { return &m_message; }
    [[nodiscard]] ComposeService *composeEmail() override { return &m_email; }

private:
    DemoCompose m_message;
    DemoCompose m_email;
};

} // namespace quenoria
