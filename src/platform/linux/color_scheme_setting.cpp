#include "platform/linux/color_scheme_setting.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDebug>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settingsInterface = u"org.freedesktop.portal.Settings"_s;
const auto appearance = u"org.freedesktop.appearance"_s;
const auto colorScheme = u"color-scheme"_s;

ColorScheme fromPortal(uint number)
{
    switch (number) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return ColorScheme::Unknown;
    }
}

} // namespace

void ColorSchemeSetting::follow(std::function<void(ColorScheme)> changed)
{
    m_changed = std::move(changed);
    if (!m_bus.isConnected())
        return;
    qRegisterMetaType<QDBusVariant>("QDBusVariant"); // by the name that the slot's text gives it
    if (!m_bus.connect(portal, portalPath, settingsInterface, u"SettingChanged"_s, this,
                       SLOT(settingChanged(QString, QString, QDBusVariant))))
        qWarning() << "The desktop's changes between light and dark cannot be heard";
    ask();
}

/// Asks without waiting: a portal that is slow to start must not hold up the window.
void ColorSchemeSetting::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, u"Read"_s);
    question << appearance << colorScheme;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> answer = *watcher;
        if (answer.isValid())
            set(answer.value().variant());
        watcher->deleteLater();
    });
}

void ColorSchemeSetting::settingChanged(const QString &group, const QString &key,
                                        const QDBusVariant &value)
{
    if (group == appearance && key == colorScheme)
        set(value.variant());
}

/// The portal wraps what it reads once more than what it announces.
void ColorSchemeSetting::set(const QVariant &value)
{
    if (value.canConvert<QDBusVariant>()) {
        set(value.value<QDBusVariant>().variant());
        return;
    }
    const ColorScheme scheme = fromPortal(value.toUInt());
    if (scheme == m_value)
        return;
    m_value = scheme;
    m_changed(scheme);
}

} // namespace quenoria
