#include "ui/queue/run_outlook.h"

#include "messaging/send_desk.h"
#include "model/local_time.h"
#include "model/sending_hours.h"
#include "ui/kit/switches.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString neverAskKey = u"EnvoiSMSHeuresSansQuestion"_s;

constexpr int enough = 3; ///< sends from which a pace can be told

} // namespace

RunOutlook::RunOutlook(const ChannelDescriptor &channel, SendDesk &desk, const Switches &switches,
                       const Platform &platform)
    : m_channel(channel), m_desk(desk), m_switches(switches), m_platform(platform)
{
}

Preflight RunOutlook::found(const QStringList &ids) const
{
    return preflight(m_desk.store(), {m_channel.channel, ids, m_platform.clock.now(),
                                      m_platform.clock.zone(), m_switches.freeProPlan()});
}

QDateTime RunOutlook::end(int contacts) const
{
    const Instant now = m_platform.clock.now();
    Instant end = now + contacts * timePerContact();
    if (const auto lastTurn = m_channel.pace.lastTurn)
        end = std::max(end, lastTurn(m_desk, m_platform.preferences, now, contacts).value_or(now));
    return localDateTime(end, m_platform.clock.zone());
}

std::chrono::milliseconds RunOutlook::timePerContact() const
{
    const ChannelPace &pace = m_channel.pace;
    return pace.isMeasured && m_sent >= enough ? (m_lastSent - m_firstSent) / (m_sent - 1)
                                               : pace.expected;
}

void RunOutlook::noteSent()
{
    m_lastSent = m_platform.clock.now();
    if (m_sent++ == 0)
        m_firstSent = m_lastSent;
}

std::optional<RunQuestion> RunOutlook::question(const QStringList &ids) const
{
    if (!m_allowed.contains(RunQuestion::blanks) && !found(ids).unfinished.isEmpty())
        return RunQuestion::blanks;
    const Carriers &carriers = m_platform.carriers;
    const bool asksAboutHours = !carriers.isFixed() && !carriers.chosen().isEmpty() &&
                                !m_platform.preferences.flag(neverAskKey).value_or(false);
    if (asksAboutHours && !m_allowed.contains(RunQuestion::hour) && isUnusualHour())
        return RunQuestion::hour;
    return std::nullopt;
}

void RunOutlook::neverAskAboutHours() { m_platform.preferences.setFlag(neverAskKey, true); }

bool RunOutlook::isUnusualHour() const
{
    return m_channel.keepsUsualHours && !isUsualSendingHour(now());
}

QDateTime RunOutlook::nextUsualHour() const { return nextUsualSendingHour(now()); }

const ProspectStore &RunOutlook::store() const { return m_desk.store(); }

QString RunOutlook::lastContact(const Prospect &contact) const
{
    const std::optional<Instant> last = store().lastContact(contact);
    return last ? localDateTime(*last, m_platform.clock.zone()).toString(u"'le' dd/MM/yyyy"_s)
                : u"jamais"_s;
}

QDateTime RunOutlook::now() const
{
    return localDateTime(m_platform.clock.now(), m_platform.clock.zone());
}

} // namespace quenoria
