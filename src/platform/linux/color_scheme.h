#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

namespace quenoria {

enum class ColorScheme { Unknown, Dark, Light };

/// The desktop's choice between light and dark, read from its portal. It is unknown until the
/// portal has answered, and stays so without a portal or without a choice.
class ColorSchemeSetting : public QObject {
    Q_OBJECT

public:
    explicit ColorSchemeSetting(QDBusConnection bus, QObject *parent = nullptr);

    [[nodiscard]] ColorScheme value() const { return m_value; }

Q_SIGNALS:
    void changed(quenoria::ColorScheme value);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void ask(QDBusConnection &bus);
    void set(const QVariant &value);

    ColorScheme m_value = ColorScheme::Unknown;
};

} // namespace quenoria
