#pragma once

#include "platform/resources.h"

namespace quenoria {

/// The files compiled into the program under ":/resources/".
class BuiltInResources : public Resources {
public:
    [[nodiscard]] std::optional<QByteArray> read(const QString &name,
                                                 const QString &suffix) const override;
};

} // namespace quenoria
