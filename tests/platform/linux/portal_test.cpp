#include "platform/linux/color_scheme.h"
#include "platform/linux/email_portal.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QTemporaryFile>
#include <QThread>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace Qt::StringLiterals;

namespace {

/// The desktop's portal as far as the application knows it.
class FakePortal : public QDBusVirtualObject {
public:
    bool refusesMail = false;
    QVariantMap composed;
    QByteArray attached;

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        if (call.member() == u"Read"_s)
            return reply(bus, call, QVariant::fromValue(QDBusVariant(1U)));
        if (call.member() == u"Get"_s)
            return reply(bus, call, 3U);
        composed = qdbus_cast<QVariantMap>(call.arguments().at(1));
        const auto files =
            qdbus_cast<QList<QDBusUnixFileDescriptor>>(composed.take(u"attachment_fds"_s));
        QFile file;
        if (!files.isEmpty() && file.open(files[0].fileDescriptor(), QIODevice::ReadOnly))
            attached = file.readAll();
        return bus.send(refusesMail ? call.createErrorReply(QDBusError::AccessDenied, u"non"_s)
                                    : call.createReply());
    }

private:
    static bool reply(const QDBusConnection &bus, const QDBusMessage &call, const QVariant &value)
    {
        return bus.send(call.createReply(QVariant::fromValue(QDBusVariant(value))));
    }
};

/// A session bus of its own, on which the portal appears when the test wants it.
class Portal : public testing::Test {
protected:
    Portal()
    {
        daemon.start(u"/usr/bin/dbus-daemon"_s,
                     {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        daemon.waitForReadyRead();
        address = QString::fromUtf8(daemon.readLine()).trimmed();
    }

    ~Portal() override
    {
        thread.quit();
        thread.wait();
        for (const QString &name : {u"desktop"_s, u"application"_s})
            QDBusConnection::disconnectFromBus(name);
        daemon.kill();
        daemon.waitForFinished();
    }

    QDBusConnection connection(const QString &name) const
    {
        return QDBusConnection::connectToBus(address, name);
    }

    /// It answers in a thread of its own, since the application may wait for it.
    void appear()
    {
        portal.moveToThread(&thread);
        thread.start();
        QDBusConnection bus = connection(u"desktop"_s);
        ASSERT_TRUE(bus.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, &portal));
        ASSERT_TRUE(bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    void announce(const QString &key, uint value) const
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << u"org.freedesktop.appearance"_s << key
               << QVariant::fromValue(QDBusVariant(value));
        connection(u"desktop"_s).send(signal);
    }

    QProcess daemon;
    QString address;
    QThread thread;
    FakePortal portal;
};

TEST_F(Portal, ComposesAnEmailWithItsFile)
{
    const EmailPortal email(connection(u"application"_s));
    EXPECT_FALSE(email.isPresent());
    appear();
    ASSERT_TRUE(email.isPresent());
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("octets");
    file.close();
    Composition draft{
        {u"alix@example.fr"_s}, u"Été"_s, u"a\nb"_s, QUrl::fromLocalFile(file.fileName())};
    EXPECT_FALSE(email.compose(draft));
    EXPECT_EQ(portal.composed, (QVariantMap{{u"addresses"_s, draft.recipients},
                                            {u"subject"_s, draft.subject},
                                            {u"body"_s, draft.body}}));
    EXPECT_EQ(portal.attached, "octets");
    portal.refusesMail = true;
    EXPECT_EQ(email.compose(draft)->message, u"non"_s);
    draft.file = QUrl::fromLocalFile(u"/nulle/part"_s);
    EXPECT_TRUE(email.compose(draft)->message->contains(u"No such file"_s));
}

TEST_F(Portal, TellsTheColourSchemeAndItsChanges)
{
    appear();
    ColorSchemeSetting setting(connection(u"application"_s));
    EXPECT_EQ(setting.value(), ColorScheme::Unknown) << "nobody waits for the answer";
    std::vector<ColorScheme> heard;
    QObject::connect(&setting, &ColorSchemeSetting::changed,
                     [&heard](ColorScheme value) { heard.push_back(value); });
    const auto hear = [&heard](std::size_t count) {
        while (heard.size() < count)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    hear(1);
    announce(u"accent-color"_s, 2);
    announce(u"color-scheme"_s, 2);
    announce(u"color-scheme"_s, 2);
    announce(u"color-scheme"_s, 0);
    hear(3);
    EXPECT_EQ(heard, (std::vector{ColorScheme::Dark, ColorScheme::Light, ColorScheme::Unknown}));
}

} // namespace
