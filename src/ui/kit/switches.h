#pragma once

#include <QObject>

#include <optional>
#include <set>

namespace quenoria {

class Preferences;

enum class Switch { automaticSMS, freePro, automaticEmail };

/// The three switches of the main window and the queues: one state, kept in the user's
/// preferences, whichever window shows it.
class Switches : public QObject {
    Q_OBJECT

public:
    explicit Switches(Preferences &preferences, QObject *parent = nullptr);
    ~Switches() override;

    bool autoValidateSMS() const;
    bool freeProPlan() const;
    bool autoValidateEmail() const;

    bool isOn(Switch which) const;

    void setAutoValidateSMS(bool on);
    void setFreeProPlan(bool on);
    void setAutoValidateEmail(bool on);
    void set(Switch which, bool on);

    /// Whether the switch has a value that would be lost at the end, and why.
    bool isUnsaved(Switch which) const;
    std::optional<QString> unsaved() const;
    void save(); ///< tries again to store them

Q_SIGNALS:
    /// One of the three took another value, or the preferences were stored, or could not be.
    void changed();

private:
    bool noteStore(); ///< true when the preferences fell behind, or caught up
    void lookAtStore();

    Preferences &m_preferences;
    std::set<Switch> m_unsaved;
    bool m_isBehind = false;
};

} // namespace quenoria
