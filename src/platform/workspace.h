#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace quenoria {

/// The desktop around the application.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Hands the URL to the application registered for its scheme; false when there is none or
    /// it could not be started.
    [[nodiscard]] virtual bool openUrl(const QUrl &url) = 0;

    /// Bundle identifier of the application that would open the URL.
    [[nodiscard]] virtual std::optional<QString> defaultApplication(const QUrl &url) const = 0;

    /// Hides the windows of every running application with the bundle identifier.
    virtual void hideApplications(const QString &bundleIdentifier) = 0;

    /// Brings this application to the front.
    virtual void comeToFront() = 0;
};

} // namespace quenoria
