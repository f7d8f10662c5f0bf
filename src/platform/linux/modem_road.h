#pragma once

#include "platform/linux/modem.h"
#include "platform/linux/service_presence.h"
#include "platform/linux/sms_road.h"

namespace quenoria {

class ModemInbox;

/// The modems of this computer, as ModemManager finds them.
class ModemRoad : public SmsRoad {
    Q_OBJECT

public:
    explicit ModemRoad(const QDBusConnection &systemBus);
    ~ModemRoad() override;

    [[nodiscard]] QString kind() const override { return QStringLiteral("modem"); }
    [[nodiscard]] bool takesFiles() const override { return false; }
    [[nodiscard]] QString handover() const override { return QStringLiteral("remis au modem"); }
    [[nodiscard]] std::shared_ptr<MessagesTransport>
    transport(const QString &device) const override;
    void watch() override;
    [[nodiscard]] std::vector<Carrier> found() const override;
    void unlock(const QString &device, const QString &pin) override;
    void listen(const QString &device, const MayRead &mayRead) override;

private Q_SLOTS:
    void look();

private:
    const Modem *modem(const QString &identifier) const;
    void take(const QDBusMessage &answer);
    void openInbox();

    BusService m_daemon;
    std::unique_ptr<ServicePresence> m_presence; ///< null until watch()
    std::vector<Modem> m_modems;
    std::unique_ptr<ModemInbox> m_inbox;
    QString m_heardDevice;
    MayRead m_mayRead;
    bool m_isAsking = false;
    bool m_mustAskAgain = false;
};

} // namespace quenoria
