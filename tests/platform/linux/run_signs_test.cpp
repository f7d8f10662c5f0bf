#include "platform/linux/bus_run_signs.h"
#include "platform/linux/fake_portal.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

/// The desktop's notifications.
class Notifications : public QDBusVirtualObject {
public:
    QString signature;
    QVariantList shown;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &call, const QDBusConnection &bus) override
    {
        signature = call.signature();
        shown = call.arguments();
        return bus.send(call.createReply(1U));
    }
};

class Signs : public testing::Test, protected PortalDesk {};

TEST_F(Signs, ANotificationIsNoMarkup)
{
    Notifications service;
    desktop().registerVirtualObject(u"/org/freedesktop/Notifications"_s, &service);
    desktop().registerService(u"org.freedesktop.Notifications"_s);
    BusRunSigns(application(), u"com.example.Quenoria"_s).notify(u"File"_s, u"1 refusé (<b>)"_s);
    while (service.shown.isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(service.signature, u"susssasa{sv}i"_s);
    EXPECT_EQ(service.shown.value(4), u"1 refusé (&lt;b&gt;)"_s);
}

} // namespace
