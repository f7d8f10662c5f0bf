#include "platform/linux/color_scheme_setting.h"
#include "platform/linux/email_portal.h"
#include "platform/linux/fake_portal.h"

#include <QCoreApplication>
#include <QTemporaryFile>

#include <gtest/gtest.h>

using namespace quenoria;
using namespace quenoria::test;
using namespace Qt::StringLiterals;

namespace {

class Portal : public testing::Test, protected PortalDesk {};

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
    setting.follow([&heard](ColorScheme value) { heard.push_back(value); });
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
