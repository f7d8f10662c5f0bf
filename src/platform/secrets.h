#pragma once

#include <QFuture>
#include <QString>

namespace quenoria {

/// What the desktop's keyring answered.
struct SecretAnswer {
    enum class State {
        found,
        absent,    ///< nothing is kept under that name
        noKeyring, ///< there is none here, or it stays locked
    };

    State state = State::noKeyring;
    QString secret; ///< of found
};

/// Passwords, kept by the desktop's keyring and nowhere else. Called on the main thread; the
/// answer may have to wait for the user to open the keyring.
class Secrets {
public:
    virtual ~Secrets() = default;

    [[nodiscard]] virtual QFuture<SecretAnswer> read(const QString &name) = 0;

    /// Answers found once the secret is kept.
    [[nodiscard]] virtual QFuture<SecretAnswer::State> keep(const QString &name,
                                                            const QString &secret) = 0;

    /// Answers absent once nothing is kept under that name.
    [[nodiscard]] virtual QFuture<SecretAnswer::State> forget(const QString &name) = 0;
};

} // namespace quenoria
