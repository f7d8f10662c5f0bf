#include "messaging/mail_turn.h"

#include "messaging/mail_run.h"
#include "model/local_time.h"
#include "store/prospect_store.h"

#include <QCoroFuture>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quenoria {

namespace {

constexpr auto day = 24h;

} // namespace

Instant nextMailTurn(std::span<const Instant> sent, MailPace pace, Instant now)
{
    std::vector<Instant> recent;
    std::ranges::copy_if(sent, std::back_inserter(recent),
                         [now](Instant each) { return each <= now && each > now - day; });
    std::ranges::sort(recent, std::greater());
    Instant turn = now;
    const auto keepTo = [&](int most, std::chrono::minutes window) {
        if (recent.size() >= std::size_t(most))
            turn = std::max(turn, recent[std::size_t(most) - 1] + window);
    };
    keepTo(pace.perMinute, 1min);
    keepTo(pace.perDay, day);
    return turn;
}

MailTurn::MailTurn(const ProspectStore &store, const Platform &platform)
    : m_store(store), m_platform(platform)
{
}

bool MailTurn::isNeeded() const
{
    return !m_platform.mailbox.isFixed() &&
           MailSettings(m_platform.preferences).road() == MailRoad::mailbox;
}

QCoro::Task<> MailTurn::wait(std::stop_token stop)
{
    const TaskScope::Lease lease = m_tasks.lease();
    const QCoro::Task<> password = waitForPassword(stop);
    co_await password;
    if (lease.isAbandoned())
        co_return;
    const QCoro::Task<> pace = waitForPace(stop);
    co_await pace;
}

QCoro::Task<> MailTurn::waitForPassword(std::stop_token stop)
{
    const TaskScope::Lease lease = m_tasks.lease();
    const QFuture<PasswordPlace> looking = m_platform.mailbox.findPassword();
    const PasswordPlace place = co_await looking;
    if (lease.isAbandoned() || place != PasswordPlace::nowhere || stop.stop_requested() ||
        !m_askPassword)
        co_return;
    const QFuture<void> asking = m_askPassword(stop);
    co_await asking;
}

QCoro::Task<> MailTurn::waitForPace(std::stop_token stop)
{
    const TaskScope::Lease lease = m_tasks.lease();
    while (!stop.stop_requested()) {
        const Instant now = m_platform.clock.now();
        const Instant turn = next(now);
        if (turn <= now)
            break;
        pauseUntil(turn);
        const QFuture<void> pause = m_platform.clock.sleep(turn - now, stop);
        co_await pause;
        if (lease.isAbandoned())
            co_return;
    }
    pauseUntil({});
}

/// The history counts what left, also before the program was started.
Instant MailTurn::next(Instant now) const
{
    if (!isNeeded())
        return now;
    return nextMailTurn(emailsSent(m_store), MailSettings(m_platform.preferences).pace(), now);
}

void MailTurn::pauseUntil(std::optional<Instant> instant)
{
    if (m_pausedUntil == instant)
        return;
    m_pausedUntil = instant;
    Q_EMIT noticeChanged();
}

QString MailTurn::notice() const
{
    if (!m_pausedUntil)
        return {};
    const QTimeZone zone = m_platform.clock.zone();
    const QDateTime until = localDateTime(*m_pausedUntil, zone);
    const bool isToday = until.date() == localDateTime(m_platform.clock.now(), zone).date();
    return u"Le rythme de votre boîte aux lettres est atteint : le prochain e-mail part %1"_s.arg(
        until.toString(isToday ? u"'à' HH:mm:ss"_s : u"'le' dd/MM 'à' HH:mm"_s));
}

} // namespace quenoria
