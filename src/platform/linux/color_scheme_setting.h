#pragma once

#include "platform/color_scheme.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace quenoria {

/// The desktop's choice, read from its portal. It is unknown until the portal has answered, and
/// stays so without a portal or without a choice.
class ColorSchemeSetting : public QObject, public ColorSchemeSource {
    Q_OBJECT

public:
    explicit ColorSchemeSetting(QDBusConnection bus) : m_bus(std::move(bus)) {}

    [[nodiscard]] ColorScheme value() const override { return m_value; }
    void follow(std::function<void(ColorScheme)> changed) override;

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask();
    void set(const QVariant &value);

    QDBusConnection m_bus;
    std::function<void(ColorScheme)> m_changed;
    ColorScheme m_value = ColorScheme::Unknown;
};

} // namespace quenoria
