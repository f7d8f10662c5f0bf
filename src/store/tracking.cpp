#include "store/prospect_store.h"
#include "store/send_history.h"
#include "store/store_state.h"

#include <algorithm>

namespace quenoria {

namespace {

/// The last confirmed send, found without copying them.
template <typename Status>
std::optional<Instant> newest(const Status *status)
{
    const auto sends = recordedSends(status);
    return sends.empty() ? std::nullopt : std::optional(sends.back());
}

/// The record to build a new one from: the existing one, or one made now.
template <typename Status>
Status existingOr(const Status *status, Instant now)
{
    if (status)
        return *status;
    Status fresh;
    fresh.sentAt = now;
    return fresh;
}

/// The record once one more send is confirmed.
template <typename Status>
Status withSend(const Status *existing, Instant date)
{
    Status status = existingOr(existing, date);
    status.sendHistory = historyFrom(existing);
    status.sendHistory->push_back(date);
    status.sent = true;
    status.sentAt = date;
    return status;
}

/// The record once a send is known of that happened before: it takes its place in the history.
template <typename Status>
Status withEarlierSend(const Status *existing, Instant date)
{
    Status status = withSend(existing, date);
    std::vector<Instant> &history = *status.sendHistory;
    const auto place = std::upper_bound(history.begin(), history.end() - 1, date);
    std::rotate(place, history.end() - 1, history.end());
    status.sentAt = history.back();
    return status;
}

/// The record once the sent mark is set: an unmarked contact gains a date, a marked one none.
template <typename Status>
Status ticked(const Status *existing, Instant now)
{
    if (!existing || !existing->sent)
        return withSend(existing, now);
    Status status = *existing;
    status.sendHistory = historyFrom(existing);
    status.sentAt = status.sendHistory->back();
    return status;
}

QString trimmedComment(const SendStatus &status)
{
    return status.comment.value_or(QString()).trimmed();
}

} // namespace

const SendStatus *ProspectStore::status(const Prospect &prospect) const
{
    return m_state->statuses.find(prospect.id);
}

const EmailSendStatus *ProspectStore::emailStatus(const Prospect &prospect) const
{
    return m_state->emailStatuses.find(prospect.id);
}

bool ProspectStore::isStopped(const Prospect &prospect) const
{
    const SendStatus *existing = status(prospect);
    return existing && existing->stopped.value_or(false);
}

std::vector<Instant> ProspectStore::sendHistory(const Prospect &prospect) const
{
    return historyFrom(status(prospect));
}

std::vector<Instant> ProspectStore::emailHistory(const Prospect &prospect) const
{
    return historyFrom(emailStatus(prospect));
}

std::optional<Instant> ProspectStore::lastContact(const Prospect &prospect) const
{
    return std::max(newest(status(prospect)), newest(emailStatus(prospect)));
}

void StoreState::setStatus(const QString &id, std::optional<SendStatus> status)
{
    if (status)
        statuses.set(id, std::move(*status));
    else
        statuses.remove(id);
    publish(Collection::statuses, {id});
}

void StoreState::setEmailStatus(const QString &id, std::optional<EmailSendStatus> status)
{
    if (status)
        emailStatuses.set(id, std::move(*status));
    else
        emailStatuses.remove(id);
    publish(Collection::emailStatuses, {id});
}

void ProspectStore::setSent(bool sent, const Prospect &prospect)
{
    const SendStatus *existing = status(prospect);
    if (sent) {
        const bool wasSent = existing && existing->sent;
        SendStatus status = ticked(existing, m_state->platform.clock.now());
        const Instant latest = status.sentAt;
        m_state->setStatus(prospect.id, std::move(status));
        if (!wasSent)
            recordSMSRecipientUsage(prospect, latest);
        return;
    }
    SendStatus status = existingOr(existing, m_state->platform.clock.now());
    status.comment = trimmedComment(status);
    status.sendHistory = historyFrom(existing);
    status.sent = false;
    const bool carriesNothing =
        status.comment->isEmpty() && !status.stopped.value_or(false) && status.sendHistory->empty();
    m_state->setStatus(prospect.id,
                       carriesNothing ? std::nullopt : std::optional(std::move(status)));
}

void ProspectStore::recordSentNow(const Prospect &prospect)
{
    const Instant now = m_state->platform.clock.now();
    m_state->setStatus(prospect.id, withSend(status(prospect), now));
    recordSMSRecipientUsage(prospect, now);
}

void ProspectStore::recordSent(const Prospect &prospect, Instant date)
{
    m_state->setStatus(prospect.id, withEarlierSend(status(prospect), date));
    recordSMSRecipientUsage(prospect, date);
}

void ProspectStore::setDate(Instant date, const Prospect &prospect)
{
    const SendStatus *existing = status(prospect);
    SendStatus status = existingOr(existing, date);
    status.sendHistory = historyFrom(existing);
    if (status.sendHistory->empty())
        status.sendHistory->push_back(date);
    else
        status.sendHistory->back() = date;
    status.sent = true;
    status.sentAt = date;
    m_state->setStatus(prospect.id, std::move(status));
}

void ProspectStore::setStopped(bool stopped, const Prospect &prospect)
{
    if (stopped)
        return m_state->stopWithTwins(prospect.id);
    const SendStatus *existing = status(prospect);
    SendStatus status = existingOr(existing, m_state->platform.clock.now());
    status.stopped.reset();
    const bool carriesNothing =
        !status.sent && trimmedComment(status).isEmpty() && historyFrom(existing).empty();
    m_state->setStatus(prospect.id,
                       carriesNothing ? std::nullopt : std::optional(std::move(status)));
}

/// Whoever says STOP says it for every row that once was the same contact.
void StoreState::stopWithTwins(const QString &id)
{
    IdSet ids;
    for (const QString &twin : twins(id)) {
        SendStatus status = existingOr(statuses.find(twin), platform.clock.now());
        status.stopped = true;
        statuses.set(twin, std::move(status));
        for (const Channel channel : allChannels)
            select(channel, false, twin);
        ids.insert(twin);
    }
    publish(Collection::statuses, std::move(ids));
}

void ProspectStore::setComment(const QString &comment, const Prospect &prospect)
{
    SendStatus status = existingOr(this->status(prospect), m_state->platform.clock.now());
    status.comment = comment;
    m_state->setStatus(prospect.id, std::move(status));
}

void ProspectStore::setEmailSent(bool sent, const Prospect &prospect)
{
    const EmailSendStatus *existing = emailStatus(prospect);
    if (sent) {
        m_state->setEmailStatus(prospect.id, ticked(existing, m_state->platform.clock.now()));
        return;
    }
    EmailSendStatus status = existingOr(existing, m_state->platform.clock.now());
    status.sendHistory = historyFrom(existing);
    status.sent = false;
    const bool carriesNothing = status.sendHistory->empty();
    m_state->setEmailStatus(prospect.id,
                            carriesNothing ? std::nullopt : std::optional(std::move(status)));
}

void ProspectStore::recordEmailSentNow(const Prospect &prospect)
{
    m_state->setEmailStatus(prospect.id,
                            withSend(emailStatus(prospect), m_state->platform.clock.now()));
}

void ProspectStore::recordEmailSent(const Prospect &prospect, Instant date)
{
    m_state->setEmailStatus(prospect.id, withEarlierSend(emailStatus(prospect), date));
}

} // namespace quenoria
