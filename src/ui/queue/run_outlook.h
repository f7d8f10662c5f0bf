#pragma once

#include "platform/platform.h"
#include "store/preflight.h"
#include "ui/channels/channel_descriptor.h"

#include <QDateTime>

#include <set>

namespace quenoria {

class SendDesk;

/// What may be asked once before a run. None of it keeps a run from beginning.
enum class RunQuestion {
    blanks, ///< a template still holds blanks to be filled in
    hour,   ///< nobody is used to get such messages now
};

/// What a queue knows of a run beforehand: whom it would meet, when it would end, what is to be
/// asked about it.
class RunOutlook {
public:
    /// All outlive the outlook.
    RunOutlook(const ChannelDescriptor &channel, SendDesk &desk, const Switches &switches,
               const Platform &platform);

    [[nodiscard]] Preflight found(const QStringList &ids) const;

    /// When a run over so many contacts would end.
    [[nodiscard]] QDateTime end(int contacts) const;

    /// The next question that the user has not answered yet.
    [[nodiscard]] std::optional<RunQuestion> question(const QStringList &ids) const;
    void allow(RunQuestion question) { m_allowed.insert(question); }
    void neverAskAboutHours();

    /// Whether custom has nothing sent now on this channel, by hand or in a demonstration too.
    [[nodiscard]] bool isUnusualHour() const;
    [[nodiscard]] QDateTime nextUsualHour() const;

    /// The time in the user's zone.
    [[nodiscard]] QDateTime now() const;

    const ProspectStore &store() const;

    /// "le 12/11/2026", "jamais"
    [[nodiscard]] QString lastContact(const Prospect &contact) const;

    // Times of a run's sends, from which the pace of the next ones is told.
    void noteStart() { m_sent = 0; }
    void noteSent();

private:
    std::chrono::milliseconds timePerContact() const;

    const ChannelDescriptor &m_channel;
    SendDesk &m_desk;
    const Switches &m_switches;
    Platform m_platform;
    std::set<RunQuestion> m_allowed;
    Instant m_firstSent;
    Instant m_lastSent;
    int m_sent = 0;
};

} // namespace quenoria
