#pragma once

#include "platform/linux/draft_opener.h"
#include "platform/sharing_services.h"
#include "platform/system_log.h"

namespace quenoria {

/// Linux desktops compose e-mails with a file; none composes messages to a telephone.
class LinuxSharing : public SharingServices, private ComposeService {
public:
    LinuxSharing(const DraftOpener &drafts, SystemLog &log) : m_drafts(drafts), m_log(log) {}

    [[nodiscard]] ComposeService *composeMessage() override { return nullptr; }
    [[nodiscard]] ComposeService *composeEmail() override;

private:
    [[nodiscard]] bool canPerform(const Composition &composition) const override;
    void perform(const Composition &composition) override;

    const DraftOpener &m_drafts;
    SystemLog &m_log;
};

} // namespace quenoria
