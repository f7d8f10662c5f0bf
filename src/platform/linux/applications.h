#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace quenoria {

/// Desktop id ("thunderbird") of the application that the user registered for the scheme.
[[nodiscard]] std::optional<QString> applicationFor(const QString &scheme);

/// Starts that application with the URL and does not wait for it; false when there is none or it
/// could not be started.
[[nodiscard]] bool openInApplication(const QUrl &url);

} // namespace quenoria
