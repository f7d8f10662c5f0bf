#include "backup/memory_of_sends.h"

#include "model/collections.h"
#include "model/contact_rules.h"
#include "model/dictionary.h"
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
template <typename Status>
std::vector<Instant> datesOf(const Status *status)
{
    std::vector<Instant> dates = historyFrom(status);
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
    for (const auto &[id, dates] : memory.sms.asKeyValueRange()) {
        contact.id = id;
        visit(Channel::sms, id, missing(dates, datesOf(store.status(contact))));
    }
    for (const auto &[id, dates] : memory.emails.asKeyValueRange()) {
        contact.id = id;
        visit(Channel::email, id, missing(dates, datesOf(store.emailStatus(contact))));
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
        if (status.stopped.value_or(false))
            memory.stopped.insert(memory.stopped.end(), id);
        join(memory.sms, id, datesOf(&status));
    });
    store.emailStatuses().forEach([&memory](const QString &id, const EmailSendStatus &status) {
        join(memory.emails, id, datesOf(&status));
    });
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

void remember(MemoryOfSends &memory, const IdSet &ids, const QByteArray &statuses,
              const QByteArray &emailStatuses)
{
    const auto sms = decodeCollection<Dictionary<SendStatus>>(statuses);
    const auto emails = decodeCollection<Dictionary<EmailSendStatus>>(emailStatuses);
    for (const QString &id : ids) {
        const SendStatus *status = sms ? sms->find(id) : nullptr;
        if (status && status->stopped.value_or(false))
            memory.stopped.insert(id);
        join(memory.sms, id, datesOf(status));
        join(memory.emails, id, datesOf(emails ? emails->find(id) : nullptr));
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
            channel == Channel::sms ? store.recordSent(contact, date)
                                    : store.recordEmailSent(contact, date);
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
