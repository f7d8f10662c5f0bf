#pragma once

#include "platform/carriers.h"
#include "platform/linux/draft_opener.h"
#include "platform/sharing_services.h"
#include "platform/system_log.h"

namespace quenoria {

/// Composes a message in the window itself, for the carrier that the user chose.
class CarrierCompose : public ComposeService {
public:
    explicit CarrierCompose(Carriers &carriers) : m_carriers(carriers) {}

    [[nodiscard]] bool canPerform(const Composition &) const override
    {
        return m_carriers.takesFiles();
    }
    void perform(const Composition &composition) override
    {
        Q_EMIT m_carriers.composeRequested(composition);
    }

private:
    Carriers &m_carriers;
};

/// Linux desktops compose e-mails with a file; none has an application for messages with one.
class LinuxSharing : public SharingServices, private ComposeService {
public:
    LinuxSharing(const DraftOpener &drafts, Carriers &carriers, SystemLog &log)
        : m_drafts(drafts), m_carriers(carriers), m_message(carriers), m_log(log)
    {
    }

    [[nodiscard]] ComposeService *composeMessage() override
    {
        return m_carriers.chosen().isEmpty() ? nullptr : &m_message;
    }
    [[nodiscard]] ComposeService *composeEmail() override;

private:
    [[nodiscard]] bool canPerform(const Composition &composition) const override;
    void perform(const Composition &composition) override;

    const DraftOpener &m_drafts;
    const Carriers &m_carriers;
    CarrierCompose m_message;
    SystemLog &m_log;
};

} // namespace quenoria
