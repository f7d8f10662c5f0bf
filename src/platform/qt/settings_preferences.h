#pragma once

#include "platform/preferences.h"
#include "platform/whole_file.h"

#include <map>
#include <mutex>

namespace quenoria {

/// Preferences in an INI file of their own, written at each change. May be used from any thread.
class SettingsPreferences : public Preferences {
public:
    SettingsPreferences(QString file, FileWriter &files);

    [[nodiscard]] std::optional<bool> flag(const QString &key) const override;
    [[nodiscard]] std::optional<QString> text(const QString &key) const override;
    void setFlag(const QString &key, bool value) override;
    void setText(const QString &key, const QString &value) override;
    [[nodiscard]] std::optional<QString> unsaved() const override;
    void save() override;
    void watch(std::function<void()> tried) override;

private:
    void read();
    void write();

    mutable std::mutex m_mutex;
    QString m_file;
    FileWriter &m_files;
    std::map<QString, QString> m_values;
    std::optional<QString> m_unreadable; ///< why the file was left as it is
    std::optional<QString> m_unsaved;
    std::function<void()> m_tried;
};

} // namespace quenoria
