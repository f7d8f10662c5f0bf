#pragma once

#include "platform/linux/known_passwords.h"
#include "platform/linux/smtp_delivery.h"
#include "platform/system_log.h"

#include <QFuture>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace quenoria {

/// Copies of sent messages on their way into the mailbox, one after the other on a thread of their
/// own: a message has left whatever becomes of its copy, and no send waits for it.
class SentCopies {
public:
    static constexpr std::chrono::milliseconds limit = std::chrono::seconds(20);

    /// All outlive the object.
    SentCopies(Preferences &preferences, std::shared_ptr<const KnownPasswords> passwords,
               SystemLog &log, SmtpConditions conditions = {.limit = limit});

    /// Waits for the copies, or for the first of them that fails.
    ~SentCopies();

    /// Keeps the text if the user asked for copies; does not wait. From any thread.
    void keep(const QByteArray &text);

    /// Why the last copy was not kept, once it was tried.
    [[nodiscard]] QFuture<std::optional<QString>> lastProblem() const;

private:
    MailSettings m_settings;
    std::shared_ptr<const KnownPasswords> m_passwords;
    SystemLog &m_log;
    SmtpConditions m_conditions;
    std::atomic<bool> m_isEnding = false;
    std::atomic<bool> m_hasFailed = false;
    mutable std::mutex m_mutex;
    QFuture<std::optional<QString>> m_last;
    QThreadPool m_thread;
};

} // namespace quenoria
