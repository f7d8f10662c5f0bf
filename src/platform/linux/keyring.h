#pragma once

#include "platform/secrets.h"

namespace quenoria {

/// The keyring of the desktop's Secret Service.
class Keyring : public Secrets {
public:
    [[nodiscard]] QFuture<SecretAnswer> read(const QString &name) override;
    [[nodiscard]] QFuture<SecretAnswer::State> keep(const QString &name,
                                                    const QString &secret) override;
    [[nodiscard]] QFuture<SecretAnswer::State> forget(const QString &name) override;
};

} // namespace quenoria
