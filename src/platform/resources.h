#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quenoria {

/// Files shipped inside the application.
class Resources {
public:
    virtual ~Resources() = default;

    /// Bytes of the resource, or nothing when it is missing or cannot be read.
    [[nodiscard]] virtual std::optional<QByteArray> read(const QString &name,
                                                         const QString &suffix) const = 0;
};

} // namespace quenoria
