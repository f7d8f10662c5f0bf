#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>

#include <functional>

namespace quenoria {

/// Ownership of a data folder: one living process at a time writes its files. The lock of a
/// process that died is taken over.
class SingleInstance {
public:
    /// The callback runs in the owner, in its event loop, when somebody starts the program again.
    SingleInstance(const QString &folder, std::function<void()> startedAgain);

    /// True when this process may use the folder, which then exists for the user alone; it may
    /// too when the folder cannot be written, since nobody can damage its files. False when
    /// another process has it: that one was asked to come to the front.
    [[nodiscard]] bool own();

private:
    bool lock();
    void listen();
    void callOwner() const;

    QString m_folder;
    QString m_address; ///< of the local socket; short, whatever the length of the folder's path
    QLockFile m_lock;
    QLocalServer m_server;
};

} // namespace quenoria
