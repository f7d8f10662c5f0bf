#pragma once

#include "platform/mail_settings.h"
#include "platform/platform.h"
#include "platform/task_scope.h"

#include <QCoroTask>

#include <functional>
#include <span>
#include <stop_token>

namespace quenoria {

class ProspectStore;

/// When the next e-mail may leave, given when the others did: now, or as soon as both the minute
/// and the day have room again. What a clock that was set back has put into the future counts for
/// nothing.
[[nodiscard]] Instant nextMailTurn(std::span<const Instant> sent, MailPace pace, Instant now);

/// What an e-mail waits for before the user's own mailbox gets it: the password, and the pace that
/// a provider bears. By any other road there is nothing to wait for.
class MailTurn : public QObject {
    Q_OBJECT

public:
    /// Asks the user for the password and finishes once he has answered; at once on a stop.
    using AskPassword = std::function<QFuture<void>(std::stop_token)>;

    /// Both outlive the object.
    MailTurn(const ProspectStore &store, const Platform &platform);

    void askPasswordWith(AskPassword ask) { m_askPassword = std::move(ask); }

    /// Whether e-mails leave through the user's own mailbox.
    [[nodiscard]] bool isNeeded() const;

    [[nodiscard]] QCoro::Task<> wait(std::stop_token stop);

    /// That an e-mail waits for the pace, and until when; empty while none does.
    [[nodiscard]] QString notice() const;
    [[nodiscard]] std::optional<Instant> pausedUntil() const { return m_pausedUntil; }

Q_SIGNALS:
    void noticeChanged();

private:
    QCoro::Task<> waitForPassword(std::stop_token stop);
    QCoro::Task<> waitForPace(std::stop_token stop);
    [[nodiscard]] Instant next(Instant now) const;
    void pauseUntil(std::optional<Instant> instant);

    const ProspectStore &m_store;
    Platform m_platform;
    AskPassword m_askPassword;
    std::optional<Instant> m_pausedUntil;
    TaskScope m_tasks;
};

} // namespace quenoria
