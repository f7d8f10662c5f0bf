#pragma once

#include "platform/transport_result.h"

#include <QFuture>
#include <QString>

namespace quenoria {

/// Where the password of the mailbox is.
enum class PasswordPlace {
    nowhere,   ///< the user has to give it before anything can leave
    memory,    ///< until the program ends, for want of a keyring
    keyring,   ///< of the desktop
    notNeeded, ///< by the chosen road, or the server asks nobody who he is
};

/// The user's own mailbox, as the window sets it up. Which one it is stands in MailSettings.
/// Everything is called on the main thread, and nothing waits.
class Mailbox {
public:
    virtual ~Mailbox() = default;

    /// Whether the choice of the road is fixed, as in a demonstration.
    [[nodiscard]] virtual bool isFixed() const = 0;

    /// Path of the system's own mail program, which is the other road; absent when there is none.
    [[nodiscard]] virtual std::optional<QString> otherRoad() const = 0;

    /// Looks for the password of the account in the keyring, unless it is known.
    [[nodiscard]] virtual QFuture<PasswordPlace> findPassword() = 0;

    /// Uses the password from now on for the account, and gives it to the keyring.
    [[nodiscard]] virtual QFuture<PasswordPlace> setPassword(const QString &password) = 0;

    /// Sends one message to the user's own address by the chosen road.
    [[nodiscard]] virtual QFuture<TransportResult> sendTest() = 0;

    /// Why the last copy of a sent message could not be kept in the mailbox, once it was tried; the
    /// message has left all the same. Absent when it was kept, or when none was to be.
    [[nodiscard]] virtual QFuture<std::optional<QString>> copyProblem() = 0;
};

} // namespace quenoria
