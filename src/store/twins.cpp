#include "store/twins.h"

#include "store/channel_records.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QChar separator = u'#'; // stands in no number and in no address

QString freeId(const QString &id, const IdSet &taken)
{
    for (int number = 2;; ++number) {
        QString free = firstId(id) + separator + QString::number(number);
        if (!taken.contains(free))
            return free;
    }
}

} // namespace

bool isTwin(const QString &id) { return id.contains(separator); }

QString firstId(const QString &id)
{
    const qsizetype number = id.indexOf(separator);
    return number < 0 ? id : id.first(number);
}

int ProspectStore::separateTwins()
{
    if (!m_state.contacts().mergedIndex().idsAreShared)
        return 0;
    IdSet taken, seen;
    for (const Prospect &prospect : m_state->prospects) {
        if (!m_state->deletedProspectIDs.contains(prospect.id))
            seen.insert(prospect.id);
    }
    m_state->customProspects.forEach(
        [&taken](const Prospect &prospect) { taken.insert(prospect.id); });
    std::vector<Prospect> contacts = m_state->customProspects.values();
    std::map<QString, QString> origins; // by the new id
    for (Prospect &contact : contacts) {
        if (!seen.insert(contact.id).second) {
            const QString origin = std::exchange(contact.id, freeId(contact.id, taken));
            taken.insert(contact.id);
            origins.emplace(contact.id, origin);
        }
    }
    if (origins.empty() || !m_state->copyRecords(origins))
        return 0;
    m_state->customProspects = Sequence<Prospect>(std::move(contacts));
    m_state->publish(Collection::customProspects);
    m_state->platform.log.write(
        u"Contacts en double auxquels une ligne a été donnée : %1"_s.arg(int(origins.size())));
    return int(origins.size());
}

/// Gives the new ids what is kept under the old ones; false when that could not be written. A
/// contact without its STOP would be worse than two contacts that share it.
bool StoreState::copyRecords(const std::map<QString, QString> &origins)
{
    IdSet ids;
    for (const auto &[id, origin] : origins)
        ids.insert(id);
    bool isWritten = true;
    for (const CollectionDescriptor &row : collections()) {
        if (row.deletionTurn == 0)
            continue;
        for (const auto &[id, origin] : origins)
            row.copy(*this, origin, id);
        publish(row.collection, ids);
        isWritten = isWritten && !unsaved.contains(row.collection);
    }
    return isWritten;
}

/// The contact and those that once shared its id, in the order in which they are served.
QStringList StoreState::twins(const QString &id)
{
    const auto &twinsByFirst = mergedIndex().twinsByFirst;
    const auto found = twinsByFirst.find(firstId(id));
    return found == twinsByFirst.end() ? QStringList{id} : found->second;
}

bool ProspectStore::isServedByTwin(Channel channel, const Prospect &prospect) const
{
    const auto isShared = channelRecords(channel).reach.isShared;
    for (const QString &id : m_state.contacts().twins(prospect.id)) {
        if (id == prospect.id)
            return false;
        const Prospect *elder = this->prospect(id);
        if (elder && isShared(*elder, prospect))
            return true;
    }
    return false;
}

} // namespace quenoria
