#include "store/contact_dossier.h"

#include "model/contact_rules.h"
#include "model/dictionary.h"
#include "model/sequence.h"
#include "model/text_set.h"
#include "store/do_not_contact.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

/// The contact as its file or the built-in list has it.
Prospect asItCame(const ProspectStore &store, const Prospect &shown)
{
    const auto isIt = [&shown](const Prospect &each) { return each.id == shown.id; };
    if (shown.isCustom) {
        if (const Prospect *custom = store.customProspects().find(isIt))
            return *custom;
    }
    const auto builtIn = std::ranges::find_if(store.prospects(), isIt);
    return builtIn == store.prospects().end() ? shown : *builtIn;
}

ContactOrigin originOf(const Prospect &first)
{
    if (!first.isCustom)
        return ContactOrigin::builtInList;
    return isLabelOfAdding(first.label) ? ContactOrigin::addedByHand : ContactOrigin::import;
}

std::vector<Instant> newestFirst(std::span<const Instant> sends)
{
    std::vector<Instant> history(sends.begin(), sends.end());
    std::ranges::stable_sort(history, std::greater());
    return history;
}

QStringList monthsWith(const Dictionary<TextSet> &recipientsByMonth, const IdSet &keys)
{
    QStringList months;
    recipientsByMonth.forEach([&](const QString &month, const TextSet &recipients) {
        if (std::ranges::any_of(
                keys, [&recipients](const QString &key) { return recipients.contains(key); }))
            months << month;
    });
    return months;
}

} // namespace

std::optional<ContactDossier> contactDossier(const ProspectStore &store, const QString &id)
{
    const Prospect *shown = store.prospect(id);
    if (!shown)
        return std::nullopt;
    ContactDossier dossier;
    dossier.contact = *shown;
    const Prospect first = asItCame(store, *shown);
    if (first != *shown)
        dossier.first = first;
    dossier.origin = originOf(first);
    if (const QString *address = store.emailOverrides().find(id))
        dossier.addressFromImport = *address;
    dossier.departmentName = store.departmentName(shown->department);
    dossier.isStopped = store.isStopped(*shown);
    if (const SendStatus *status = store.status(*shown))
        dossier.comment = status->comment.value_or(QString());
    for (const Channel channel : allChannels)
        dossier.channels[std::size_t(channel)] = {
            store.isMarkedSent(channel, *shown), newestFirst(store.sends(channel, *shown)),
            store.isSelected(channel, *shown), store.assignedTemplate(channel, *shown)};
    dossier.quotaMonths =
        monthsWith(store.smsMonthlyRecipientsByMonth(),
                   {ProspectStore::recipientKey(*shown), ProspectStore::recipientKey(first)});
    dossier.attachment = store.attachmentPath(*shown);
    dossier.attachmentIsThere = store.attachmentExists(*shown);
    dossier.isListed = std::ranges::any_of(keysOf(dossier), [&store](const QString &key) {
        return store.doNotContact().contains(key) || store.doNotContact().erased().contains(key);
    });
    return dossier;
}

IdSet keysOf(const ContactDossier &dossier)
{
    IdSet keys = keysOf(dossier.contact);
    if (dossier.first)
        keys.merge(keysOf(*dossier.first));
    return keys;
}

} // namespace quenoria
