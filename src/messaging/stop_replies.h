#pragma once

#include "model/id_set.h"
#include "platform/platform.h"

#include <QHash>
#include <QObject>
#include <QStringList>

namespace quenoria {

class ProspectStore;
struct Prospect;

/// A message by which someone of the list asks for no more messages.
struct StopReply {
    QString label; ///< of the contact, or of all who share the number
    ReceivedMessage message;
    bool operator==(const StopReply &) const = default;
};

/// The received messages that say STOP and wait for the user's decision. Off until the user turns
/// it on; then the chosen carrier is asked for what came from a number of the list after the first
/// message that was recorded as sent to it, and for nothing else.
///
/// Nothing of them is stored: the carrier keeps its messages, and is asked again at each start.
/// What the user has decided on is remembered by fingerprints, in the preferences.
class StopReplies : public QObject {
    Q_OBJECT

public:
    /// Store and services outlive the object.
    StopReplies(ProspectStore &store, const Platform &platform);
    ~StopReplies() override;

    bool isOn() const;
    void setOn(bool on);

    /// Those without a decision, oldest first.
    const std::vector<StopReply> &waiting() const { return m_waiting; }

    /// Whether a reply from the contact's number waits.
    bool isWaiting(const Prospect &contact) const;

    /// Marks everyone of that number, and with it every reply from there as decided on.
    void markStopped(const ReceivedMessage &message);

    /// Decides on this one alone: it does not come back.
    void ignore(const ReceivedMessage &message);

    /// Asks the carrier again for everything: more may be read than before.
    void readAgain();

Q_SIGNALS:
    /// Others wait than before, or it was turned on or off.
    void changed();

private:
    bool mayRead(const QString &number, Instant date) const;
    void take(const ReceivedMessage &message);
    void settle(const std::vector<ReceivedMessage> &messages);
    void refresh();
    std::vector<const Prospect *> contactsAt(const QString &handle) const;
    void noteWritten(const IdSet &ids);
    void index(const Prospect &contact) const;

    ProspectStore &m_store;
    Platform m_platform;
    std::vector<ReceivedMessage> m_replies; ///< not decided on; their numbers are handles
    std::vector<StopReply> m_waiting;       ///< of them, those of contacts that are not stopped
    /// Who has a record of sends, by handle; built when it is asked for.
    mutable std::optional<QHash<QString, QStringList>> m_written;
};

} // namespace quenoria
