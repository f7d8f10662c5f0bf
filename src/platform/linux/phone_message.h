#pragma once

#include <QStringList>
#include <QVariant>

#include <optional>

namespace quenoria {

inline const QString kdeConnect = QStringLiteral("org.kde.kdeconnect");
inline const QString phonesInterface = QStringLiteral("org.kde.kdeconnect.daemon");
inline const QString phonesPath = QStringLiteral("/modules/kdeconnect");
inline const QString phoneInterface = QStringLiteral("org.kde.kdeconnect.device");
inline const QString conversationsInterface =
    QStringLiteral("org.kde.kdeconnect.device.conversations");
inline const QString phoneSmsInterface = QStringLiteral("org.kde.kdeconnect.device.sms");
inline const QString phoneSmsPlugin = QStringLiteral("kdeconnect_sms");

[[nodiscard]] inline QString phonePath(const QString &device)
{
    return phonesPath + QStringLiteral("/devices/") + device;
}

/// A message of the telephone's own memory, as KDE Connect announces it.
struct PhoneMessage {
    enum Type { received = 1, sent = 2, failed = 5 }; ///< Android's numbers

    QString text;
    QStringList numbers;
    qint64 date = 0; ///< milliseconds since 1970, by the telephone's clock
    int type = 0;
    qint64 identifier = 0;
    qint64 conversation = 0;
};

/// Nothing when the announcement has another shape.
[[nodiscard]] std::optional<PhoneMessage> readPhoneMessage(const QVariant &announced);

} // namespace quenoria
