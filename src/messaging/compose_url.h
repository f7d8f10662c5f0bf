#pragma once

#include <QString>
#include <QUrl>

#include <span>
#include <utility>

namespace quenoria {

/// One name and value of a URL's query.
using QueryItem = std::pair<QString, QString>;

/// A URL without authority ("sms:…?body=…", "mailto:…?subject=…&body=…") whose path and values
/// are percent-encoded as UTF-8, so that "&", "+", "#", "?" and line breaks arrive as typed.
/// Invalid (QUrl::isValid() is false) when no such URL exists.
[[nodiscard]] QUrl composeUrl(const QString &scheme, const QString &path,
                              std::span<const QueryItem> items);

} // namespace quenoria
