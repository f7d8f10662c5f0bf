#pragma once

#include <QObject>

namespace quenoria {

class Preferences;

/// The three switches of the main window and the queues: one state, kept in the user's
/// preferences, whichever window shows it.
class Switches : public QObject {
    Q_OBJECT

public:
    explicit Switches(Preferences &preferences, QObject *parent = nullptr);

    bool autoValidateSMS() const;
    bool freeProPlan() const;
    bool autoValidateEmail() const;

    void setAutoValidateSMS(bool on);
    void setFreeProPlan(bool on);
    void setAutoValidateEmail(bool on);

Q_SIGNALS:
    /// One of the three took another value.
    void changed();

private:
    void set(const QString &key, bool current, bool on);

    Preferences &m_preferences;
};

} // namespace quenoria
