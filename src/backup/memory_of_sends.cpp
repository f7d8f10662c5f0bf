#include "backup/memory_of_sends.h"

#include "model/contact_rules.h"
#include "model/dictionary.h"
#include "store/channel_data.h"
#include "store/do_not_contact.h"
#include "store/many_contacts.h"
#include "store/prospect_store.h"
#include "store/send_history.h"
#include "store/together.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The files hold whole seconds: a send is the same one before and after it was written.
std::vector<Instant> datesOf(std::span<const Instant> sends)
{
    std::vector<Instant> dates(sends.begin(), sends.end());
    for (Instant &date : dates)
        date = std::chrono::floor<std::chrono::seconds>(date);
    std::ranges::sort(dates);
    return dates;
}

/// The same send twice in one second is two sends on both sides, and so once each.
std::vector<Instant> missing(const std::vector<Instant> &known, const std::vector<Instant> &own)
{
    std::vector<Instant> dates;
    std::ranges::set_difference(known, own, std::back_inserter(dates));
    return dates;
}

void join(SendDates &known, const QString &id, const std::vector<Instant> &dates)
{
    std::vector<Instant> all;
    std::ranges::set_union(known.value(id), dates, std::back_inserter(all));
    if (!all.empty())
        known[id] = std::move(all);
}

bool asksForNoMore(const SendStatus *status) { return status && status->stopped.value_or(false); }
bool asksForNoMore(const EmailSendStatus * /*status*/) { return false; } // stands with the SMS

/// What a channel's file says of these; no file says nothing.
template <typename Statuses>
void rememberThose(MemoryOfSends &memory, const IdSet &ids, Channel channel,
                   const std::optional<Statuses> &statuses)
{
    for (const QString &id : ids) {
        const auto *status = statuses ? statuses->find(id) : nullptr;
        join(memory.sends[std::size_t(channel)], id, datesOf(recordedSends(status)));
        if (asksForNoMore(status))
            memory.stopped.insert(id);
    }
}

Prospect contactOf(const QString &id, const ProspectStore &store)
{
    if (const Prospect *known = store.prospect(id))
        return *known;
    Prospect gone;
    gone.id = id;
    return gone;
}

template <typename Visit>
void forEachForgottenSend(const MemoryOfSends &memory, const ProspectStore &store, Visit &&visit)
{
    Prospect contact;
    for (const Channel channel : allChannels) {
        for (const auto &[id, dates] : memory.sends[std::size_t(channel)].asKeyValueRange()) {
            contact.id = id;
            visit(channel, id, missing(dates, datesOf(store.sends(channel, contact))));
        }
    }
}

/// An instant of that month, whatever the zone.
Instant middleOf(const QString &month)
{
    return instantFromText((month + u"-15T12:00:00Z"_s).toLatin1()).value_or(Instant());
}

} // namespace

MemoryOfSends memoryOf(const ProspectStore &store)
{
    MemoryOfSends memory;
    store.statuses().forEach([&memory](const QString &id, const SendStatus &status) {
        if (asksForNoMore(&status))
            memory.stopped.insert(memory.stopped.end(), id);
    });
    for (const Channel channel : allChannels) {
        SendDates &known = memory.sends[std::size_t(channel)];
        store.forEachRecord(channel, [&known](const QString &id, std::span<const Instant> sends) {
            join(known, id, datesOf(sends));
        });
    }
    for (const QString &id : memory.stopped)
        memory.stoppedKeys.merge(keysOf(contactOf(id, store)));
    store.smsMonthlyRecipientsByMonth().forEach(
        [&memory](const QString &month, const TextSet &keys) {
            memory.recipientsByMonth[month] = keys;
        });
    memory.doNotContact = store.doNotContact().entries();
    memory.erased = store.doNotContact().erased();
    memory.deletedStops = store.doNotContact().deletedStops();
    return memory;
}

void remember(MemoryOfSends &memory, const IdSet &ids, const PerChannel<QByteArray> &statuses)
{
    for (const Channel channel : allChannels) {
        AllChannelData().on(channel, [&](const auto &data) {
            using Statuses = std::remove_cvref_t<decltype(data.statuses)>;
            const auto decoded = decodeCollection<Statuses>(statuses[std::size_t(channel)]);
            rememberThose(memory, ids, channel, decoded);
        });
    }
}

void leaveOutErased(const MemoryOfSends &memory, ProspectStore &store)
{
    if (memory.erased.empty())
        return;
    IdSet ids;
    for (const Prospect &contact : store.allProspects()) {
        const IdSet keys = keysOf(contact);
        if (std::ranges::any_of(keys, [&](const auto &key) { return memory.erased.contains(key); }))
            ids.insert(contact.id);
    }
    store.deleteProspects(ids);
}

IdSet forgottenStops(const MemoryOfSends &memory, const ProspectStore &store)
{
    const auto isKnown = [&memory](const QString &key) {
        return memory.stoppedKeys.contains(key) || memory.doNotContact.contains(key) ||
               memory.deletedStops.contains(key);
    };
    IdSet ids = memory.stopped;
    for (const Prospect &contact : store.allProspects()) {
        if (std::ranges::any_of(keysOf(contact), isKnown))
            ids.insert(contact.id);
    }
    Prospect contact;
    std::erase_if(ids, [&](const QString &id) {
        contact.id = id;
        return store.isStopped(contact);
    });
    return ids;
}

std::size_t forgottenSends(const MemoryOfSends &memory, const ProspectStore &store)
{
    std::size_t count = 0;
    forEachForgottenSend(memory, store,
                         [&count](Channel, const QString &, const std::vector<Instant> &dates) {
                             count += dates.size();
                         });
    return count;
}

void bringBackStops(const MemoryOfSends &memory, ProspectStore &store)
{
    store.setStopped(true, forgottenStops(memory, store));
}

void bringBackSends(const MemoryOfSends &memory, ProspectStore &store)
{
    const Together together(store);
    const auto record = [&store](Channel channel, const QString &id,
                                 const std::vector<Instant> &dates) {
        const Prospect contact = contactOf(id, store);
        for (const Instant date : dates)
            store.recordSent(channel, contact, date);
    };
    forEachForgottenSend(memory, store, record);
    for (const auto &[month, keys] : memory.recipientsByMonth) {
        Prospect recipient; // without a number it is counted by its id
        for (const QString &key : keys) {
            const TextSet *counted = store.smsMonthlyRecipientsByMonth().find(month);
            recipient.id = key;
            if (!counted || !counted->contains(key))
                store.recordSMSRecipientUsage(recipient, middleOf(month));
        }
    }
}

} // namespace quenoria
