#include "model/contact_rules.h"
#include "model/local_time.h"
#include "store/prospect_store.h"
#include "store/quota_keys.h"
#include "store/store_state.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString monthlyLimitReached =
    u"Limite mensuelle atteinte : 250 destinataires SMS ont déjà été contactés ce mois-ci. "
    "Cochez « Forfait Free Pro » uniquement si votre forfait autorise les envois sans cette "
    "limite."_s;

} // namespace

QString quotaMonth(QDate local)
{
    return u"%1-%2"_s.arg(local.year(), 4, 10, QChar(u'0')).arg(local.month(), 2, 10, QChar(u'0'));
}

QString quotaRecipient(const Prospect &contact)
{
    const QString digits = normalizePhone(contact.phone);
    return digits.isEmpty() ? contact.id : digits;
}

QString StoreState::monthKey(Instant date) const
{
    return quotaMonth(localDateTime(date, platform.clock.zone()).date());
}

QString ProspectStore::recipientKey(const Prospect &prospect) { return quotaRecipient(prospect); }

int ProspectStore::smsRecipientsSentThisMonth() const
{
    const TextSet *recipients =
        m_state->smsMonthlyRecipientsByMonth.find(m_state->monthKey(m_state->platform.clock.now()));
    return recipients ? int(recipients->size()) : 0;
}

int ProspectStore::remainingStandardSMSRecipientsThisMonth() const
{
    return std::max(0, standardSMSMonthlyRecipientLimit - smsRecipientsSentThisMonth());
}

Refusal ProspectStore::smsQuotaError(const Prospect &prospect, bool freeProEnabled) const
{
    if (freeProEnabled)
        return {};
    const TextSet *recipients =
        m_state->smsMonthlyRecipientsByMonth.find(m_state->monthKey(m_state->platform.clock.now()));
    if (!recipients || recipients->contains(recipientKey(prospect)))
        return {};
    if (int(recipients->size()) >= standardSMSMonthlyRecipientLimit)
        return monthlyLimitReached;
    return {};
}

void ProspectStore::recordSMSRecipientUsage(const Prospect &prospect, Instant date)
{
    m_state->smsMonthlyRecipientsByMonth.edit(m_state->monthKey(date), [&](TextSet &recipients) {
        recipients.insert(recipientKey(prospect));
    });
    m_state->publish(Collection::smsMonthlyRecipientsByMonth);
}

void StoreState::mergeExistingSMSHistoryIntoMonthlyRecipients()
{
    std::map<QString, std::vector<QString>> months;
    for (const Prospect &prospect : mergedList()) {
        const QString recipient = quotaRecipient(prospect);
        for (const Instant date : store.sendHistory(prospect))
            months[monthKey(date)].push_back(recipient);
    }
    for (auto &[month, recipients] : months)
        smsMonthlyRecipientsByMonth.set(month, TextSet(std::move(recipients)));
    publish(Collection::smsMonthlyRecipientsByMonth);
}

} // namespace quenoria
