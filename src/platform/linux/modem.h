#pragma once

#include <QDBusMessage>

#include <optional>
#include <vector>

namespace quenoria {

inline const QString modemManager = QStringLiteral("org.freedesktop.ModemManager1");
inline const QString modemRoot = QStringLiteral("/org/freedesktop/ModemManager1");
inline const QString modemInterface = QStringLiteral("org.freedesktop.ModemManager1.Modem");
inline const QString messagingInterface =
    QStringLiteral("org.freedesktop.ModemManager1.Modem.Messaging");
inline const QString smsInterface = QStringLiteral("org.freedesktop.ModemManager1.Sms");
inline const QString simInterface = QStringLiteral("org.freedesktop.ModemManager1.Sim");
inline const QString objectManager = QStringLiteral("org.freedesktop.DBus.ObjectManager");

/// A modem as ModemManager describes it, in the daemon's own numbers.
struct Modem {
    QString path;
    QString identifier; ///< of the equipment, which outlives unplugging
    QString name;
    QString sim; ///< path of the card's object
    int state = 0;
    uint failure = 0;             ///< why the state is that of a failure
    uint lock = 0;                ///< what it waits for while it is locked
    std::optional<uint> pinTries; ///< before the card blocks, when the card tells
    uint registration = 0;        ///< with the mobile network
    bool hasMessaging = false;

    bool isLocked() const { return state == 2; }
    bool asksForPin() const;
    bool isAsleep() const { return state >= 3 && state <= 5; } ///< disabled, or on its way
    bool isDenied() const { return registration == 3; }
    bool isRegistered() const { return state >= 8; }
};

/// The modems in the answer to GetManagedObjects.
[[nodiscard]] std::vector<Modem> readModems(const QDBusMessage &answer);

/// Why no message can leave by the modem, which is not asleep; nothing when one can.
[[nodiscard]] std::optional<QString> obstacle(const Modem &modem);

/// The same for what cannot change by waiting: a card or a modem that is not fit.
[[nodiscard]] std::optional<QString> lastingObstacle(const Modem &modem);

} // namespace quenoria
