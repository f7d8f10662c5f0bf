#pragma once

#include "platform/preferences.h"

#include <QSettings>

namespace quenoria {

/// Preferences in an INI file of their own, written at each change.
class SettingsPreferences : public Preferences {
public:
    explicit SettingsPreferences(const QString &file);

    [[nodiscard]] std::optional<bool> flag(const QString &key) const override;
    [[nodiscard]] std::optional<QString> text(const QString &key) const override;
    void setFlag(const QString &key, bool value) override;
    void setText(const QString &key, const QString &value) override;

private:
    void set(const QString &key, const QString &value);

    QSettings m_settings;
};

} // namespace quenoria
