#include "store/preflight.h"

#include "model/blanks.h"
#include "model/dictionary.h"
#include "model/local_time.h"
#include "model/text_set.h"
#include "store/channel_records.h"
#include "store/prospect_store.h"
#include "store/quota_keys.h"

namespace quenoria {

namespace {

constexpr auto recently = std::chrono::days{30};

/// Goes through the contacts of a run as the run would.
class Look {
public:
    Look(const ProspectStore &store, const PlannedRun &run)
        : m_store(store), m_run(run), m_records(channelRecords(run.channel))
    {
        const QDate today = localDateTime(run.now, run.zone).date();
        if (const TextSet *known = store.smsMonthlyRecipientsByMonth().find(quotaMonth(today)))
            m_counted = *known;
    }

    Preflight found() &&
    {
        for (const QString &id : m_run.ids) {
            if (const Prospect *contact = m_store.prospect(id))
                look(*contact);
            ++m_turn;
        }
        return std::move(m_found);
    }

private:
    void look(const Prospect &contact)
    {
        const bool hasAddress = isReachable(contact);
        const bool lacksFile =
            m_store.attachmentName(contact) && !m_store.attachmentExists(contact);
        if (const auto last = m_store.lastContact(contact); last && *last > m_run.now - recently)
            m_found.recent << contact.id;
        if (!hasAddress)
            m_found.unreachable << contact.id;
        if (lacksFile)
            m_found.withoutFile << contact.id;
        if (hasBlanks(contact))
            m_found.unfinished << contact.id;
        if (m_records.monthly && hasAddress && !lacksFile && !takesRoom(contact))
            noteBeyondQuota(contact.id);
    }

    bool isReachable(const Prospect &contact) const
    {
        return m_records.reach.isUsable(contact) && m_store.isReachable(m_run.channel, contact);
    }

    /// Each template is read once.
    bool hasBlanks(const Prospect &contact)
    {
        const EmailTemplate assigned = m_store.assignedTemplate(m_run.channel, contact);
        const auto known = m_blanks.constFind(assigned.id);
        if (known != m_blanks.cend())
            return *known;
        const QStringList blanks = blanksIn(assigned.subject + u'\n' + assigned.body);
        m_found.blanks += blanks;
        m_found.blanks.removeDuplicates();
        return *m_blanks.insert(assigned.id, !blanks.isEmpty());
    }

    /// Whether the month's quota has room for the contact, which a recipient counted before needs
    /// none of.
    bool takesRoom(const Prospect &contact)
    {
        const QString key = quotaRecipient(contact);
        if (m_run.freePro || m_counted.contains(key))
            return true;
        if (int(m_counted.size()) >= ProspectStore::standardSMSMonthlyRecipientLimit)
            return false;
        m_counted.insert(key);
        return true;
    }

    void noteBeyondQuota(const QString &id)
    {
        if (m_found.beyondQuota.isEmpty())
            m_found.beforeQuota = m_turn;
        m_found.beyondQuota << id;
    }

    const ProspectStore &m_store;
    const PlannedRun &m_run;
    const ChannelRecords &m_records;
    Preflight m_found;
    QHash<QString, bool> m_blanks; ///< by template
    TextSet m_counted;             ///< recipients of the month, with those of the run so far
    int m_turn = 0;
};

} // namespace

Preflight preflight(const ProspectStore &store, const PlannedRun &run)
{
    return Look(store, run).found();
}

} // namespace quenoria
