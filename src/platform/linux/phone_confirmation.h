#pragma once

#include "platform/linux/bus_service.h"
#include "platform/linux/phone_message.h"

#include <QDBusVariant>
#include <QEventLoop>
#include <QObject>

namespace quenoria {

/// Waits for the telephone to show the message that it was asked to send. Made before the message
/// is handed over, and used on one thread, which needs no event loop of its own.
class PhoneConfirmation : public QObject {
    Q_OBJECT

public:
    PhoneConfirmation(BusService daemon, QString handle, QString text, qint64 confirmedBefore);

    /// False when the announcements cannot be heard.
    [[nodiscard]] bool isListening() const { return m_isListening; }

    /// Nothing when the telephone said nothing of it within the limit.
    [[nodiscard]] std::optional<PhoneMessage> wait(std::chrono::milliseconds limit);

private Q_SLOTS:
    void hear(const QDBusVariant &announced);

private:
    bool isOurs(const PhoneMessage &message) const;

    BusService m_daemon;
    QString m_handle;
    QString m_text;
    qint64 m_confirmedBefore;
    qint64 m_since;
    std::optional<PhoneMessage> m_answer;
    QEventLoop m_loop;
    bool m_isListening;
};

} // namespace quenoria
