#pragma once

#include "backup/snapshot.h"
#include "platform/platform.h"

#include <QFuture>
#include <QObject>
#include <QThreadPool>

#include <stop_token>

namespace quenoria {

/// Copies the user's files into "Sauvegardes" beside them: at the first start of a day, and before
/// many records change or go at once. The files are caught on the spot and packed on a thread of
/// their own; nothing is written when they are as in the last backup. What is too old goes.
class Backups : public QObject {
    Q_OBJECT

public:
    /// Store and services outlive the object.
    Backups(ProspectStore &store, const Platform &platform, QObject *parent = nullptr);
    ~Backups() override; ///< waits until what was caught is written

    /// Makes the backup of the day, if there is none yet, once the start is over.
    void startDay();

    /// Writes the files as they are now to a file of the user's choice. Gives the reason when it
    /// could not.
    [[nodiscard]] QFuture<Refusal> saveTo(const QString &path);

    void waitForDone() { m_thread.waitForDone(); }

Q_SIGNALS:
    /// An automatic backup could not be made. Told once until one succeeds.
    void failed(const QString &reason);

private:
    void backUp();
    void conclude(const Refusal &failure);
    QString folder() const;

    ProspectStore &m_store;
    Platform m_platform;
    QThreadPool m_thread;
    std::stop_source m_stop;
    bool m_hasFailed = false;
};

/// Writes the snapshot into the folder, which is made if need be, unless the last backup there
/// holds the same; then removes what is too old. On any thread.
[[nodiscard]] Refusal addBackup(const Snapshot &snapshot, const Platform &platform,
                                const QString &folder);

} // namespace quenoria
