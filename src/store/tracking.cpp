#include "store/channel_records.h"
#include "store/prospect_store.h"
#include "store/send_history.h"
#include "store/store_state.h"

#include <algorithm>

namespace quenoria {

namespace {

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

void trimComment(SendStatus &status) { status.comment = trimmedComment(status); }
void trimComment(EmailSendStatus & /*status*/) {} // it has none

bool saysMoreThanSends(const SendStatus &status)
{
    return !trimmedComment(status).isEmpty() || status.stopped.value_or(false);
}

bool saysMoreThanSends(const EmailSendStatus & /*status*/) { return false; }

/// The record once the sent mark is taken away: the history stays; none when nothing is left.
template <typename Status>
std::optional<Status> unticked(const Status *existing, Instant now)
{
    Status status = existingOr(existing, now);
    trimComment(status);
    status.sendHistory = historyFrom(existing);
    status.sent = false;
    if (status.sendHistory->empty() && !saysMoreThanSends(status))
        return std::nullopt;
    return status;
}

/// Without a record the contact's goes.
template <typename Status>
void put(Dictionary<Status> &statuses, const QString &id, std::optional<Status> status)
{
    if (status)
        statuses.set(id, std::move(*status));
    else
        statuses.remove(id);
}

} // namespace

const SendStatus *ProspectStore::status(const Prospect &prospect) const
{
    return m_state->channels.of<Channel::sms>().statuses.find(prospect.id);
}

const EmailSendStatus *ProspectStore::emailStatus(const Prospect &prospect) const
{
    return m_state->channels.of<Channel::email>().statuses.find(prospect.id);
}

bool ProspectStore::isStopped(const Prospect &prospect) const
{
    const SendStatus *existing = status(prospect);
    return existing && existing->stopped.value_or(false);
}

std::span<const Instant> ProspectStore::sends(Channel channel, const Prospect &prospect) const
{
    return m_state->channels.on(channel, [&prospect](const auto &data) {
        return recordedSends(data.statuses.find(prospect.id));
    });
}

void ProspectStore::forEachRecord(Channel channel, const TakeSends &take) const
{
    m_state->channels.on(channel, [&take](const auto &data) {
        data.statuses.forEach(
            [&take](const QString &id, const auto &status) { take(id, recordedSends(&status)); });
    });
}

std::optional<Instant> ProspectStore::lastContact(const Prospect &prospect) const
{
    std::optional<Instant> last;
    for (const Channel channel : allChannels) {
        if (const auto known = sends(channel, prospect); !known.empty())
            last = std::max(last, std::optional(known.back()));
    }
    return last;
}

bool ProspectStore::isMarkedSent(Channel channel, const Prospect &prospect) const
{
    return m_state->channels.on(channel, [&prospect](const auto &data) {
        const auto *status = data.statuses.find(prospect.id);
        return status && status->sent;
    });
}

void StoreState::countSend(Channel channel, const Prospect &prospect, Instant date)
{
    if (const auto &monthly = channelRecords(channel).monthly)
        (store.*monthly->add)(prospect, date);
}

void ProspectStore::markSent(Channel channel, bool sent, const Prospect &prospect)
{
    const bool isNew = sent && !isMarkedSent(channel, prospect);
    const Instant now = m_state->platform.clock.now();
    m_state->channels.on(channel, [&](auto &data) {
        const auto *existing = data.statuses.find(prospect.id);
        put(data.statuses, prospect.id,
            sent ? std::optional(ticked(existing, now)) : unticked(existing, now));
    });
    m_state->publish(channelRecords(channel).statuses, {prospect.id});
    if (isNew)
        m_state->countSend(channel, prospect, now);
}

void ProspectStore::recordSentNow(Channel channel, const Prospect &prospect)
{
    const Instant now = m_state->platform.clock.now();
    m_state->channels.on(channel, [&](auto &data) {
        data.statuses.set(prospect.id, withSend(data.statuses.find(prospect.id), now));
    });
    m_state->publish(channelRecords(channel).statuses, {prospect.id});
    m_state->countSend(channel, prospect, now);
}

void ProspectStore::recordSent(Channel channel, const Prospect &prospect, Instant date)
{
    m_state->channels.on(channel, [&](auto &data) {
        data.statuses.set(prospect.id, withEarlierSend(data.statuses.find(prospect.id), date));
    });
    m_state->publish(channelRecords(channel).statuses, {prospect.id});
    m_state->countSend(channel, prospect, date);
}

std::vector<Instant> ProspectStore::sendHistory(const Prospect &prospect) const
{
    return historyFrom(status(prospect));
}

std::vector<Instant> ProspectStore::emailHistory(const Prospect &prospect) const
{
    return historyFrom(emailStatus(prospect));
}

void ProspectStore::setSent(bool sent, const Prospect &prospect)
{
    markSent(Channel::sms, sent, prospect);
}

void ProspectStore::recordSentNow(const Prospect &prospect)
{
    recordSentNow(Channel::sms, prospect);
}

void ProspectStore::recordSent(const Prospect &prospect, Instant date)
{
    recordSent(Channel::sms, prospect, date);
}

void ProspectStore::setEmailSent(bool sent, const Prospect &prospect)
{
    markSent(Channel::email, sent, prospect);
}

void ProspectStore::recordEmailSentNow(const Prospect &prospect)
{
    recordSentNow(Channel::email, prospect);
}

void ProspectStore::recordEmailSent(const Prospect &prospect, Instant date)
{
    recordSent(Channel::email, prospect, date);
}

void StoreState::setStatus(const QString &id, std::optional<SendStatus> status)
{
    put(channels.of<Channel::sms>().statuses, id, std::move(status));
    publish(Collection::statuses, {id});
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
        auto &statuses = channels.of<Channel::sms>().statuses;
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

} // namespace quenoria
