#pragma once

#include "platform/secrets.h"

#include <map>

namespace quenoria::test {

struct FakeKeyring : Secrets {
    SecretAnswer::State state = SecretAnswer::State::absent;
    std::map<QString, QString> kept;

    QFuture<SecretAnswer> read(const QString &name) override
    {
        const bool known = state != SecretAnswer::State::noKeyring && kept.contains(name);
        return QtFuture::makeReadyFuture(
            known ? SecretAnswer{SecretAnswer::State::found, kept[name]} : SecretAnswer{state, {}});
    }

    QFuture<SecretAnswer::State> keep(const QString &name, const QString &secret) override
    {
        if (state == SecretAnswer::State::noKeyring)
            return QtFuture::makeReadyFuture(state);
        kept[name] = secret;
        return QtFuture::makeReadyFuture(SecretAnswer::State::found);
    }

    QFuture<SecretAnswer::State> forget(const QString &name) override
    {
        kept.erase(name);
        return QtFuture::makeReadyFuture(SecretAnswer::State::absent);
    }
};

} // namespace quenoria::test
