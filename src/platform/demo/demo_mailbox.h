#pragma once

#include "platform/mailbox.h"

namespace quenoria {

/// No mailbox is set up in a demonstration: every e-mail goes to the outbox.
class DemoMailbox : public Mailbox {
public:
    [[nodiscard]] bool isFixed() const override { return true; }
    [[nodiscard]] std::optional<QString> otherRoad() const override { return {}; }

    [[nodiscard]] QFuture<PasswordPlace> findPassword() override
    {
        return QtFuture::makeReadyFuture(PasswordPlace::notNeeded);
    }

    [[nodiscard]] QFuture<PasswordPlace> setPassword(const QString &) override
    {
        return findPassword();
    }

    [[nodiscard]] QFuture<TransportResult> sendTest() override
    {
        return QtFuture::makeReadyFuture(TransportResult());
    }

    [[nodiscard]] QFuture<std::optional<QString>> copyProblem() override
    {
        return QtFuture::makeReadyFuture(std::optional<QString>());
    }
};

} // namespace quenoria
