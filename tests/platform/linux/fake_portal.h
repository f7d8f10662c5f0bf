#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QThread>

namespace quenoria::test {

inline const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");

inline QVariant variant(const QVariant &value) { return QVariant::fromValue(QDBusVariant(value)); }

/// The desktop's portal as far as the application knows it.
class FakePortal : public QDBusVirtualObject {
public:
    QVariantMap composed;
    QString error; ///< what it answers to a draft; none when empty
    QByteArray attached;

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        if (call.member() == QStringLiteral("Read"))
            return bus.send(call.createReply(variant(variant(1U))));
        if (call.member() == QStringLiteral("Get"))
            return bus.send(call.createReply(variant(3U)));
        if (!error.isEmpty())
            return bus.send(call.createErrorReply(error, QStringLiteral("refusé")));
        composed = qdbus_cast<QVariantMap>(call.arguments().at(1));
        const auto files = qdbus_cast<QList<QDBusUnixFileDescriptor>>(
            composed.take(QStringLiteral("attachment_fds")));
        QFile file;
        if (!files.isEmpty() && file.open(files[0].fileDescriptor(), QIODevice::ReadOnly))
            attached = file.readAll();
        return bus.send(call.createReply());
    }
};

/// A session bus of its own. The portal answers in another thread, since the application waits.
class PortalDesk {
public:
    PortalDesk()
    {
        daemon.start(QStringLiteral("/usr/bin/dbus-daemon"),
                     {QStringLiteral("--session"), QStringLiteral("--nofork"),
                      QStringLiteral("--print-address")});
        daemon.waitForReadyRead();
        portal.moveToThread(&thread);
        thread.start();
        desktop().registerVirtualObject(portalPath, &portal);
        desktop().registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    ~PortalDesk()
    {
        thread.quit();
        thread.wait();
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
        QDBusConnection::disconnectFromBus(QStringLiteral("application"));
        daemon.kill();
        daemon.waitForFinished();
    }

    QDBusConnection desktop()
    {
        return QDBusConnection::connectToBus(address(), QStringLiteral("desktop"));
    }
    QDBusConnection application()
    {
        return QDBusConnection::connectToBus(address(), QStringLiteral("application"));
    }

    QString address() { return QString::fromUtf8(daemon.peek(200)).trimmed(); }

    QProcess daemon;
    QThread thread;
    FakePortal portal;
};

} // namespace quenoria::test
