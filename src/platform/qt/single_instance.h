#pragma once

#include "platform/posix/folder_lock.h"

#include <QLocalServer>
#include <QString>

#include <functional>
#include <variant>

class QLocalSocket;

namespace quenoria {

/// Ownership of a data folder: one living process at a time writes its files. The folder of a
/// process that died is free at once.
class SingleInstance {
public:
    struct Owner {};
    struct OwnedByAnother {
        bool cameToFront; ///< it took the call
    };
    struct Unguarded {}; ///< on a file system without locks, nobody can say whether another has it
    struct Refused {
        QString reason; ///< the system's
    };
    using Ownership = std::variant<Owner, OwnedByAnother, Unguarded, Refused>;

    /// The callback runs in the owner, in its event loop, when somebody starts the program again;
    /// it gets that start's file, or nothing.
    SingleInstance(QString folder, std::function<void(const QString &file)> startedAgain,
                   FolderLock lock = {});

    /// Tries to own the folder, which must be there; another owner is asked to come to the front,
    /// and to open this file if there is one.
    [[nodiscard]] Ownership own(const QString &file = {});

    /// Listens to further starts all the same, on a file system without locks.
    void listen();

private:
    QStringList addresses() const;
    bool callOwner(const QString &file) const;
    void answer(QLocalSocket *call);

    QString m_folder;
    std::function<void(const QString &)> m_startedAgain;
    FolderLock m_lock;
    QLocalServer m_server;
};

} // namespace quenoria
