#include "platform/qt/settings_preferences.h"

#include "platform/system_reason.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <cctype>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// In quotes, as QSettings reads it; a text that begins with "@" would be another type's.
QByteArray iniText(const QString &text)
{
    QByteArray quoted = "\"";
    if (text.startsWith(u'@'))
        quoted += '@';
    for (const char byte : text.toUtf8()) {
        if (byte == '"' || byte == '\\')
            quoted += '\\';
        if (byte >= 0 && byte < ' ')
            quoted += "\\x" + QByteArray::number(byte, 16) + "\"\""; // no digit follows
        else
            quoted += byte;
    }
    return quoted + '"';
}

/// Escaped as QSettings reads it: a key that comes from a damaged file may begin like a section.
QByteArray iniKey(const QString &key)
{
    QByteArray escaped;
    for (const QChar each : key) {
        const char16_t code = each.unicode();
        if (code < 0x80 &&
            (std::isalnum(code) != 0 || code == u'_' || code == u'-' || code == u'.'))
            escaped += char(code);
        else
            escaped += (code > 0xff ? "%U" : "%") +
                       QByteArray::number(code, 16).rightJustified(code > 0xff ? 4 : 2, '0');
    }
    return escaped;
}

} // namespace

SettingsPreferences::SettingsPreferences(QString file, FileWriter &files)
    : m_file(std::move(file)), m_files(files)
{
    read();
}

void SettingsPreferences::read()
{
    QFile source(m_file);
    if (source.exists() && !source.open(QIODevice::ReadOnly)) {
        m_unreadable = systemReason(source.errorString());
        return;
    }
    const QSettings stored(m_file, QSettings::IniFormat);
    for (const QString &key : stored.childKeys()) {
        const QVariant value = stored.value(key);
        if (value.typeId() == QMetaType::QString)
            m_values[key] = value.toString();
    }
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
    const std::lock_guard lock(m_mutex);
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void SettingsPreferences::setFlag(const QString &key, bool value)
{
    setText(key, value ? u"true"_s : u"false"_s);
}

void SettingsPreferences::setText(const QString &key, const QString &value)
{
    const std::lock_guard lock(m_mutex);
    m_values[key] = value;
    write();
}

void SettingsPreferences::save()
{
    const std::lock_guard lock(m_mutex);
    write();
}

std::optional<QString> SettingsPreferences::unsaved() const
{
    const std::lock_guard lock(m_mutex);
    return m_unsaved;
}

void SettingsPreferences::write()
{
    QByteArray content = "[General]\n";
    for (const auto &[key, value] : m_values)
        content += iniKey(key) + '=' + iniText(value) + '\n';
    m_unsaved = m_unreadable;
    if (!m_unsaved)
        m_unsaved = m_files.makeFolder(QFileInfo(m_file).absolutePath());
    if (!m_unsaved)
        m_unsaved = m_files.write(m_file, content);
    if (m_tried)
        m_tried();
}

/// Once it returns, the one before is not called any more.
void SettingsPreferences::watch(std::function<void()> tried)
{
    const std::lock_guard lock(m_mutex);
    m_tried = std::move(tried);
}

} // namespace quenoria
