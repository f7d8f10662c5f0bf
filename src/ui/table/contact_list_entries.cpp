#include "ui/table/contact_list.h"

#include "model/large_area.h"
#include "ui/table/search_texts.h"
#include "ui/table/shares.h"

namespace quenoria {

QList<std::uint32_t> ContactList::entriesOf(const QString &id) const
{
    if (!m_idsAreIndexed)
        indexIds();
    const auto first = m_firstById.find(
        id, [this](quint32 entry) -> const QString & { return m_entries[entry].contact.id; });
    return first == KeyIndex::none ? QList<std::uint32_t>()
                                   : QList<std::uint32_t>{first} + m_othersById.values(id);
}

void ContactList::takeAll()
{
    const std::vector<Prospect> &all = m_store.allProspects();
    m_entries.clear();
    m_entries.reserve(all.size());
    expectFilling(m_entries);
    for (const Prospect &contact : all)
        m_entries.push_back({.contact = contact, .sent = {}, .filteredBy = {}});
    if (m_store.isReady()) { // a start shows the contacts before the histories are read
        inShares(m_entries.size(), [this](std::size_t, std::size_t begin, std::size_t end) {
            for (std::size_t entry = begin; entry < end; ++entry)
                readRecords(m_entries[entry]);
        });
    }
    m_sent.fill(0);
    for (const Entry &entry : m_entries)
        tally(entry, 1);
    m_idsAreIndexed = false;
    m_texts.reset(m_entries.size());
    m_labels.reset(m_entries.size());
    m_keys.setAll(m_entries.size(), sortValueOf());
    filterAnew();
}

/// Once an id is looked for: the first picture does without.
void ContactList::indexIds() const
{
    const auto idAt = [this](quint32 entry) -> const QString & {
        return m_entries[entry].contact.id;
    };
    m_firstById = {};
    m_firstById.reserve(m_entries.size(), idAt);
    m_othersById.clear();
    for (quint32 entry = 0; entry < m_entries.size(); ++entry) {
        const QString &id = idAt(entry);
        if (m_firstById.insertNew(entry, idAt) != KeyIndex::none)
            m_othersById.insert(id, entry);
    }
    m_idsAreIndexed = true;
}

int ContactList::reload(std::uint32_t entry)
{
    take(entry);
    return rowOfEntry(entry);
}

void ContactList::reloadEach(const IdSet &ids)
{
    for (const QString &id : ids) {
        for (const std::uint32_t entry : entriesOf(id))
            take(entry);
    }
    if (ids.size() > m_entries.size() / 4) // texts set anew leave their old ones behind
        m_texts.reset(m_entries.size());
}

void ContactList::take(std::uint32_t entry)
{
    Entry &kept = m_entries[entry];
    const std::vector<Prospect> &all = m_store.allProspects();
    const bool isThere = entry < all.size() && all[entry].id == kept.contact.id;
    tally(kept, -1);
    if (isThere)
        kept.contact = all[entry];
    readRecords(kept);
    m_keys.set(entry, sortValueOf());
    m_labels.forget(entry);
    m_texts.forget(entry);
    m_accepted[entry] = Accepted::unknown;
    tally(kept, 1);
    m_displaced.insert(entry);
}

void ContactList::readRecords(Entry &entry) const
{
    for (const Channel channel : allChannels)
        entry.sent[std::size_t(channel)] = m_store.isMarkedSent(channel, entry.contact);
    entry.filteredBy = FilteredBy::of({m_store, m_state, entry.contact});
}

void ContactList::tally(const Entry &entry, int by)
{
    for (std::size_t channel = 0; channel < m_sent.size(); ++channel)
        m_sent[channel] += entry.sent[channel] ? by : 0;
}

SortKeys::ValueOf ContactList::sortValueOf() const
{
    const auto &column = contactColumns()[std::size_t(columnOf(m_sortColumn))];
    return [this, &column](std::size_t entry) {
        return sortValue(column, {m_store, m_state, m_entries[entry].contact});
    };
}

TextBuffer::Append ContactList::searchedTextOf() const
{
    return [this](std::string &out, std::size_t entry) {
        const Cell cell{m_store, m_state, m_entries[entry].contact};
        for (const ContactColumn &column : contactColumns()) {
            if (column.searched)
                appendFolded(out, column.searched(cell) + textSeparator);
        }
    };
}

} // namespace quenoria
