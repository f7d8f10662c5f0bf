#pragma once

#include "backup/backups.h"

class QWidget;

namespace quenoria {

class RestoreView;
class SendDesk;

/// The commands on backups, and what the user is told of those that the application makes.
class BackupCommands : public QObject {
    Q_OBJECT

public:
    BackupCommands(SendDesk &desk, const Platform &platform, QWidget *window);

    void startDay() { m_backups.startDay(); }

    /// Saves the files as they are now where the user wants.
    void save();

    /// Lets the user choose a backup, see what it would change, and decide.
    void restore();

Q_SIGNALS:
    /// A line for the user.
    void done(const QString &text);

    /// The data folder is to be left as it is, and the application to start anew.
    void restoreDecided();

private:
    void concludeSave(const QString &path, const Refusal &failure);

    [[nodiscard]] Refusal hindrance() const;
    void preview(const QString &path);
    void decide(RestoreView &view);

    SendDesk &m_desk;
    Platform m_platform;
    QWidget *m_window;
    Backups m_backups;
};

} // namespace quenoria
