#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace quenoria {

/// The user's preferences, kept by the desktop between two starts. Transports read theirs on the
/// thread of a script, so any thread may use them.
class Preferences {
public:
    virtual ~Preferences() = default;

    /// Absent when the key was never set or holds another type.
    [[nodiscard]] virtual std::optional<bool> flag(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<QString> text(const QString &key) const = 0;

    /// The value holds at once; whether it is stored too, unsaved() says.
    virtual void setFlag(const QString &key, bool value) = 0;
    virtual void setText(const QString &key, const QString &value) = 0;

    /// Why what was set last could not be stored: it would be lost at the end. Absent when it was.
    [[nodiscard]] virtual std::optional<QString> unsaved() const = 0;

    /// Tries again to store what was set.
    virtual void save() = 0;

    /// Calls the one function after each try to store, on the thread that tried; none when empty.
    virtual void watch(std::function<void()> tried) = 0;
};

} // namespace quenoria
