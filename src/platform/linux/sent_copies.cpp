#include "platform/linux/sent_copies.h"

#include "platform/linux/sent_folder.h"

#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace quenoria {

SentCopies::SentCopies(Preferences &preferences, std::shared_ptr<const KnownPasswords> passwords,
                       SystemLog &log, SmtpConditions conditions)
    : m_settings(preferences), m_passwords(std::move(passwords)), m_log(log),
      m_conditions(std::move(conditions)),
      m_last(QtFuture::makeReadyFuture(std::optional<QString>()))
{
    m_thread.setMaxThreadCount(1);
}

SentCopies::~SentCopies()
{
    m_isEnding = true;
    m_thread.waitForDone();
}

void SentCopies::keep(const QByteArray &text)
{
    const MailboxAccount account = m_settings.account();
    if (!account.keepsCopies)
        return;
    const QString password = m_passwords->of(account).value_or(QString());
    const auto work = [this, text, account, password]() -> std::optional<QString> {
        if (m_isEnding && m_hasFailed)
            return {};
        const std::optional<QString> why = keepCopy(text, account, password, m_conditions);
        m_hasFailed = why.has_value();
        if (!why)
            return {};
        const QString words =
            u"Le message est parti, mais sa copie n’a pas été rangée dans « Envoyés » : "_s + *why;
        m_log.write(words);
        return words;
    };
    const std::lock_guard lock(m_mutex);
    m_last = QtConcurrent::run(&m_thread, work);
}

QFuture<std::optional<QString>> SentCopies::lastProblem() const
{
    const std::lock_guard lock(m_mutex);
    return m_last;
}

} // namespace quenoria
