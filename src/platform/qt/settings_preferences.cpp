#include "platform/qt/settings_preferences.h"

using namespace Qt::StringLiterals;

namespace quenoria {

SettingsPreferences::SettingsPreferences(const QString &file)
    : m_settings(file, QSettings::IniFormat)
{
}

/// The file holds every value as a text, so a flag is known by its two spellings.
std::optional<bool> SettingsPreferences::flag(const QString &key) const
{
    const auto value = text(key);
    if (value == u"true"_s)
        return true;
    if (value == u"false"_s)
        return false;
    return std::nullopt;
}

std::optional<QString> SettingsPreferences::text(const QString &key) const
{
    const QVariant value = m_settings.value(key);
    if (value.typeId() != QMetaType::QString)
        return std::nullopt;
    return value.toString();
}

void SettingsPreferences::setFlag(const QString &key, bool value)
{
    set(key, value ? u"true"_s : u"false"_s);
}

void SettingsPreferences::setText(const QString &key, const QString &value) { set(key, value); }

void SettingsPreferences::set(const QString &key, const QString &value)
{
    m_settings.setValue(key, value);
    m_settings.sync(); // nothing is lost when the process is killed
}

} // namespace quenoria
