#pragma once

#include "platform/demo/outbox.h"
#include "platform/workspace.h"

namespace quenoria {

/// Keeps the messages that the user would have sent by hand in the outbox; every other URL is
/// the real desktop's.
class DemoWorkspace : public Workspace {
public:
    explicit DemoWorkspace(Outbox &outbox) : m_outbox(outbox) {}

    [[nodiscard]] bool openUrl(const QUrl &url) override;
    [[nodiscard]] std::optional<QString> defaultApplication(const QUrl &url) const override;
    void hideApplications(const QString &bundleIdentifier) override;
    void comeToFront() override;

private:
    Outbox &m_outbox;
};

} // namespace quenoria
