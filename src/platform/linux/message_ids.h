#pragma once

#include "platform/mail_transport.h"
#include "platform/preferences.h"

#include <QByteArray>

namespace quenoria {

/// The Message-IDs of messages whose fate is not known. One that is sent again after doubt gets
/// the same id, so that the recipient's server can tell that it has it already; they are kept
/// between two starts, since the program may have ended in the hand-over.
class MessageIds {
public:
    explicit MessageIds(Preferences &preferences) : m_preferences(preferences) {}

    /// The id of the message, without angle brackets; its fate is unknown until it is settled.
    [[nodiscard]] QByteArray begin(const OutgoingMessage &message, const QString &sender);

    /// It has left, or it has certainly not: the same text again would be another message.
    void settle(const QByteArray &id);

private:
    Preferences &m_preferences;
};

} // namespace quenoria
