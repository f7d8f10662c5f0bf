#include "platform/linux/kept_pins.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString flagKey(const QString &carrier) { return u"EnvoiSMSPINRetenu-"_s + carrier; }

QString secretName(const QString &carrier) { return u"pin:"_s + carrier; }

} // namespace

bool KeptPins::has(const QString &carrier) const
{
    return m_preferences.flag(flagKey(carrier)).value_or(false);
}

QFuture<std::optional<QString>> KeptPins::read(const QString &carrier)
{
    return m_keyring.read(secretName(carrier)).then([](const SecretAnswer &answer) {
        return answer.state == SecretAnswer::State::found ? std::optional(answer.secret)
                                                          : std::nullopt;
    });
}

QFuture<bool> KeptPins::keep(const QString &carrier, const QString &pin)
{
    const auto note = [&preferences = m_preferences, carrier](SecretAnswer::State state) {
        const bool isKept = state == SecretAnswer::State::found;
        preferences.setFlag(flagKey(carrier), isKept);
        return isKept;
    };
    return m_keyring.keep(secretName(carrier), pin).then(note);
}

/// Without the flag it is never asked for again, even where the keyring refuses to drop it.
void KeptPins::forget(const QString &carrier)
{
    if (!has(carrier))
        return;
    m_preferences.setFlag(flagKey(carrier), false);
    std::ignore = m_keyring.forget(secretName(carrier));
}

} // namespace quenoria
