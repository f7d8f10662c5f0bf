#pragma once

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace quenoria {

/// Calls back with the answer, or with the error that took its place, while the owner lives.
template <typename Callback>
void whenAnswered(const QDBusPendingCall &call, QObject *owner, Callback callback)
{
    if (call.isFinished()) { // as it is at once without a bus, of which no watcher is told
        const auto answer = [callback = std::move(callback), reply = call.reply()] {
            callback(reply);
        };
        QMetaObject::invokeMethod(owner, answer, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(call, owner);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, owner,
                     [watcher, callback = std::move(callback)] {
                         watcher->deleteLater();
                         callback(watcher->reply());
                     });
}

} // namespace quenoria
