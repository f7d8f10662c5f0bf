#include "platform/linux/phone_confirmation.h"

#include "platform/linux/sms_handle.h"

#include <QDateTime>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qint64 clockDifference = 120'000; ///< milliseconds that the telephone's may be late

} // namespace

PhoneConfirmation::PhoneConfirmation(BusService daemon, QString handle, QString text,
                                     qint64 confirmedBefore)
    : m_daemon(std::move(daemon)), m_handle(std::move(handle)), m_text(std::move(text)),
      m_confirmedBefore(confirmedBefore),
      m_since(QDateTime::currentMSecsSinceEpoch() - clockDifference),
      m_isListening(m_daemon.listen(conversationsInterface, u"conversationCreated"_s, this,
                                    SLOT(hear(QDBusVariant))) &&
                    m_daemon.listen(conversationsInterface, u"conversationUpdated"_s, this,
                                    SLOT(hear(QDBusVariant))))
{
}

std::optional<PhoneMessage> PhoneConfirmation::wait(std::chrono::milliseconds limit)
{
    QTimer::singleShot(limit, &m_loop, &QEventLoop::quit);
    if (!m_answer)
        m_loop.exec();
    return m_answer;
}

void PhoneConfirmation::hear(const QDBusVariant &announced)
{
    const std::optional<PhoneMessage> message = readPhoneMessage(announced.variant());
    if (!message || !isOurs(*message))
        return;
    m_answer = message;
    m_loop.quit();
}

bool PhoneConfirmation::isOurs(const PhoneMessage &message) const
{
    const auto isToHandle = [this](const QString &number) {
        return isSameNumber(number, m_handle);
    };
    return (message.type == PhoneMessage::sent || message.type == PhoneMessage::failed) &&
           message.identifier != m_confirmedBefore && message.date >= m_since &&
           message.text.trimmed() == m_text.trimmed() &&
           std::ranges::any_of(message.numbers, isToHandle);
}

} // namespace quenoria
