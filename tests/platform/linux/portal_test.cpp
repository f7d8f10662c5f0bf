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

const auto portalPath = u"/org/freedesktop/portal/desktop"_s;

QVariant variant(const QVariant &value) { return QVariant::fromValue(QDBusVariant(value)); }

/// The desktop's portal as far as the application knows it.
class FakePortal : public QDBusVirtualObject {
public:
    QVariantMap composed;
    QByteArray attached;

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        if (call.member() == u"Read"_s)
            return bus.send(call.createReply(variant(variant(1U))));
        if (call.member() == u"Get"_s)
            return bus.send(call.createReply(variant(3U)));
        composed = qdbus_cast<QVariantMap>(call.arguments().at(1));
        const auto files =
            qdbus_cast<QList<QDBusUnixFileDescriptor>>(composed.take(u"attachment_fds"_s));
        QFile file;
        if (!files.isEmpty() && file.open(files[0].fileDescriptor(), QIODevice::ReadOnly))
            attached = file.readAll();
        return bus.send(call.createReply());
    }
};

/// A session bus of its own. The portal answers in another thread, since the application waits.
class Portal : public testing::Test {
protected:
    Portal()
    {
        daemon.start(u"/usr/bin/dbus-daemon"_s,
                     {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        daemon.waitForReadyRead();
        portal.moveToThread(&thread);
        thread.start();
        desktop().registerVirtualObject(portalPath, &portal);
        desktop().registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    ~Portal() override
    {
        thread.quit();
        thread.wait();
        QDBusConnection::disconnectFromBus(u"desktop"_s);
        QDBusConnection::disconnectFromBus(u"application"_s);
        daemon.kill();
        daemon.waitForFinished();
    }

    QDBusConnection desktop() { return QDBusConnection::connectToBus(address(), u"desktop"_s); }
    QDBusConnection application()
    {
        return QDBusConnection::connectToBus(address(), u"application"_s);
    }

    QString address() { return QString::fromUtf8(daemon.peek(200)).trimmed(); }

    QProcess daemon;
    QThread thread;
    FakePortal portal;
};

TEST_F(Portal, ComposesAnEmailWithItsFile)
{
    const EmailPortal email(application());
    ASSERT_TRUE(email.isPresent());
    QTemporaryFile file;
    ASSERT_TRUE(file.open() && file.write("octets") && file.flush());
    const Composition draft{
        {u"alix@example.fr"_s}, u"Été"_s, u"a\nb"_s, QUrl::fromLocalFile(file.fileName())};
    EXPECT_FALSE(email.compose(draft));
    const QVariantMap expected{
        {u"addresses"_s, draft.recipients}, {u"subject"_s, draft.subject}, {u"body"_s, draft.body}};
    EXPECT_EQ(portal.composed, expected);
    EXPECT_EQ(portal.attached, "octets");
}

TEST_F(Portal, TellsTheColourSchemeAndItsChanges)
{
    ColorSchemeSetting setting(application());
    EXPECT_EQ(setting.value(), ColorScheme::Unknown) << "nobody waits for the answer";
    std::vector<ColorScheme> heard;
    QObject::connect(&setting, &ColorSchemeSetting::changed,
                     [&heard](ColorScheme value) { heard.push_back(value); });
    while (heard.empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (const auto &[key, value] : {std::pair(u"accent-color"_s, 2U),
                                     {u"color-scheme"_s, 2U},
                                     {u"color-scheme"_s, 2U},
                                     {u"color-scheme"_s, 0U}}) {
        QDBusMessage signal = QDBusMessage::createSignal(
            portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal.setArguments({u"org.freedesktop.appearance"_s, key, variant(value)});
        desktop().send(signal);
    }
    while (heard.size() < 3)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(heard, (std::vector{ColorScheme::Dark, ColorScheme::Light, ColorScheme::Unknown}));
}

} // namespace
