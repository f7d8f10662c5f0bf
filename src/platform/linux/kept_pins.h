#pragma once

#include "platform/preferences.h"
#include "platform/secrets.h"

#include <optional>

namespace quenoria {

/// The PINs that the user wants kept: in the keyring and nowhere else. A flag of the preferences
/// tells for which carriers there is one, so that nobody else's keyring is ever asked.
class KeptPins {
public:
    KeptPins(Preferences &preferences, Secrets &keyring)
        : m_preferences(preferences), m_keyring(keyring)
    {
    }

    [[nodiscard]] bool has(const QString &carrier) const;

    /// Absent when the keyring has it no more, or is not there.
    [[nodiscard]] QFuture<std::optional<QString>> read(const QString &carrier);

    /// Finishes with whether the keyring took it.
    [[nodiscard]] QFuture<bool> keep(const QString &carrier, const QString &pin);

    void forget(const QString &carrier);

private:
    Preferences &m_preferences;
    Secrets &m_keyring;
};

} // namespace quenoria
