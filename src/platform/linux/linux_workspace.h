#pragma once

#include "platform/workspace.h"

namespace quenoria {

/// The applications that the user registered with the desktop.
class LinuxWorkspace : public Workspace {
public:
    [[nodiscard]] bool openUrl(const QUrl &url) override;

    /// "com.apple.mail" for an e-mail when a mail program is set up, since Quenoria then plays
    /// that part itself; else the desktop id of the application registered for the scheme.
    [[nodiscard]] std::optional<QString> defaultApplication(const QUrl &url) const override;

    void hideApplications(const QString &bundleIdentifier) override;
    void comeToFront() override;
};

} // namespace quenoria
