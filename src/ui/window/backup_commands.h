#pragma once

#include "backup/backups.h"

class QWidget;

namespace quenoria {

/// The commands on backups, and what the user is told of those that the application makes.
class BackupCommands : public QObject {
    Q_OBJECT

public:
    BackupCommands(ProspectStore &store, const Platform &platform, QWidget *window);

    void startDay() { m_backups.startDay(); }

    /// Saves the files as they are now where the user wants.
    void save();

Q_SIGNALS:
    /// A line for the user.
    void done(const QString &text);

private:
    void concludeSave(const QString &path, const Refusal &failure);

    Platform m_platform;
    QWidget *m_window;
    Backups m_backups;
};

} // namespace quenoria
