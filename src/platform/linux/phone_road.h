#pragma once

#include "platform/linux/phone_message.h"
#include "platform/linux/service_presence.h"
#include "platform/linux/sms_road.h"

#include <QDBusVariant>
#include <QSet>

namespace quenoria {

/// The telephones that are paired with this computer in KDE Connect.
class PhoneRoad : public SmsRoad {
    Q_OBJECT

public:
    explicit PhoneRoad(const QDBusConnection &sessionBus);

    [[nodiscard]] QString kind() const override { return QStringLiteral("telephone"); }
    [[nodiscard]] bool takesFiles() const override { return true; }
    [[nodiscard]] QString handover() const override
    {
        return QStringLiteral("envoyé par le téléphone");
    }
    [[nodiscard]] std::shared_ptr<MessagesTransport>
    transport(const QString &device) const override;
    void watch() override;
    [[nodiscard]] std::vector<Carrier> found() const override;
    void unlock(const QString &device, const QString &pin) override;
    void listen(const QString &device, const MayRead &mayRead) override;

private Q_SLOTS:
    void look();
    void hear(const QDBusVariant &announced, const QDBusMessage &signal);

private:
    struct Phone {
        QString device;
        QString name;
        bool isReachable = false;
        bool maySend = false;
    };

    static Carrier carrier(const Phone &phone);
    void describe(const QStringList &devices);
    void addPhone(const QString &device, const QVariantMap &properties);
    void askForMessages();
    void take(const QVariant &announced);
    void askForConversation(qint64 conversation);

    BusService m_daemon;
    std::unique_ptr<ServicePresence> m_presence; ///< null until watch()
    std::vector<Phone> m_phones;
    int m_lookCount = 0; ///< an answer to an earlier look is old
    QString m_heardDevice;
    MayRead m_mayRead;
    QSet<qint64> m_conversations; ///< that were asked for
};

} // namespace quenoria
