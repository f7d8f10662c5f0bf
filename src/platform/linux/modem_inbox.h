#pragma once

#include "platform/carriers.h"
#include "platform/linux/bus_service.h"

#include <QSet>

namespace quenoria {

/// The messages that a modem has received. Number and date are asked first, the text only of a
/// message that may be read.
class ModemInbox : public QObject {
    Q_OBJECT

public:
    ModemInbox(BusService daemon, MayRead mayRead);

    /// Looks through what the modem holds; a message is announced once.
    void read(const QString &modemPath);

Q_SIGNALS:
    void received(const quenoria::ReceivedMessage &message);

private:
    void readMessage(const QString &path);
    void readSender(const QString &path);
    void readText(const QString &path, const QString &number, Instant date);
    void get(const QString &path, const QString &property,
             const std::function<void(const QVariant &)> &answered);

    BusService m_daemon;
    MayRead m_mayRead;
    QSet<QString> m_seen; ///< paths, which the daemon does not use again
};

} // namespace quenoria
