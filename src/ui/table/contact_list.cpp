#include "ui/table/contact_list.h"

#include "model/text_order.h"

#include <algorithm>
#include <numeric>

namespace quenoria {

namespace {

constexpr std::size_t nowhere = std::size_t(-1);

} // namespace

ContactList::ContactList(ProspectStore &store, TableState &state) : m_store(store), m_state(state)
{
    rebuild();
}

int ContactList::rowOf(const QString &id) const
{
    const auto found = m_entriesById.constFind(id);
    return found == m_entriesById.cend() ? none : rowOfEntry(*found);
}

int ContactList::rowOfEntry(std::uint32_t entry) const
{
    const std::size_t place = placeOf(m_shown, entry);
    return place == nowhere ? none : int(place);
}

std::vector<int> ContactList::rowsOfEntries() const
{
    std::vector<int> rows(m_entries.size(), none);
    for (std::size_t row = 0; row < m_shown.size(); ++row)
        rows[m_shown[row]] = int(row);
    return rows;
}

void ContactList::setSearchText(const QString &text)
{
    m_searchText = text;
    m_needle = text.trimmed().isEmpty() ? std::nullopt : std::optional(foldedForSearch(text));
    if (m_needle) {
        for (std::size_t entry = 0; entry < m_entries.size(); ++entry) // as their records lie
            readTexts(entry);
    }
    settle();
    find();
}

void ContactList::setFilter(const ContactFilter &filter)
{
    m_filter = filter;
    filterAnew();
    settle();
    find();
}

void ContactList::filterAnew() { m_accepted.assign(m_entries.size(), Accepted::unknown); }

void ContactList::sort(SortColumn column, Qt::SortOrder order)
{
    const bool sameKeys = column == m_sortColumn;
    m_sortColumn = column;
    m_sortOrder = order;
    if (!sameKeys) {
        for (Entry &entry : m_entries)
            entry.key = orderKey(entry.contact);
    }
    arrange();
}

QSet<QString> ContactList::rebuild()
{
    std::vector<QString> idsBefore;
    for (const Entry &entry : m_entries)
        idsBefore.push_back(entry.contact.id);
    m_entries.clear();
    m_texts.reset(m_store.allProspects().size());
    const auto before = std::exchange(m_entriesById, {});
    m_sent.fill(0);
    m_entries.reserve(m_store.allProspects().size());
    for (const Prospect &contact : m_store.allProspects()) {
        m_entriesById.insert(contact.id, std::uint32_t(m_entries.size()));
        tally(m_entries.emplace_back(fresh(contact)), 1);
    }
    filterAnew();
    if (keepOrder(idsBefore)) {
        m_isDisplaced = true;
        return {};
    }
    m_order.resize(m_entries.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    arrange();
    QSet<QString> came;
    for (const Entry &entry : m_entries) {
        if (!before.contains(entry.contact.id))
            came.insert(entry.contact.id);
    }
    return came;
}

/// Leaves the rows as they were but for those of contacts that went; false when others came.
bool ContactList::keepOrder(const std::vector<QString> &idsBefore)
{
    constexpr auto gone = std::uint32_t(-1);
    std::vector<std::uint32_t> now(idsBefore.size(), gone); // both lists are in the store's order
    std::uint32_t entry = 0;
    for (std::size_t before = 0; before < idsBefore.size(); ++before) {
        if (entry < m_entries.size() && m_entries[entry].contact.id == idsBefore[before])
            now[before] = entry++;
    }
    if (entry < m_entries.size())
        return false;
    for (Order *order : {&m_order, &m_shown}) {
        for (std::uint32_t &each : *order)
            each = now[each];
        std::erase(*order, gone);
    }
    return true;
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
    kept = fresh(Prospect(isThere ? all[entry] : kept.contact));
    m_texts.forget(entry);
    m_accepted[entry] = Accepted::unknown;
    tally(kept, 1);
    m_displaced.insert(entry);
}

ContactList::Entry ContactList::fresh(const Prospect &contact) const
{
    std::array<bool, allChannels.size()> sent{};
    for (const Channel channel : allChannels)
        sent[std::size_t(channel)] = m_store.isMarkedSent(channel, contact);
    return {.contact = contact,
            .key = orderKey(contact),
            .sent = sent,
            .filteredBy = FilteredBy::of({m_store, m_state, contact})};
}

void ContactList::tally(const Entry &entry, int by)
{
    for (std::size_t channel = 0; channel < m_sent.size(); ++channel)
        m_sent[channel] += entry.sent[channel] ? by : 0;
}

ContactList::OrderKey ContactList::orderKey(const Prospect &contact) const
{
    const auto &column = contactColumns()[std::size_t(columnOf(m_sortColumn))];
    const SortValue value = sortValue(column, {m_store, m_state, contact});
    if (const auto *text = std::get_if<QString>(&value))
        return dictionaryOrder().sortKey(*text);
    if (const auto *flag = std::get_if<bool>(&value))
        return *flag;
    return std::get<Instant>(value);
}

void ContactList::readTexts(std::size_t entry) const
{
    if (m_texts.has(entry))
        return;
    const Cell cell{m_store, m_state, m_entries[entry].contact};
    m_read.resize(0);
    for (const ContactColumn &column : contactColumns()) {
        if (column.searched)
            m_read += column.searched(cell) + textSeparator;
    }
    m_texts.set(entry, m_read);
}

/// A total order: what is equal in every respect stays in the store's order.
bool ContactList::precedes(std::uint32_t a, std::uint32_t b) const
{
    const Entry &left = m_entries[a];
    const Entry &right = m_entries[b];
    if (left.key < right.key)
        return m_sortOrder == Qt::AscendingOrder;
    if (right.key < left.key)
        return m_sortOrder == Qt::DescendingOrder;
    const int byLabel = labelKey(left).compare(labelKey(right));
    return byLabel == 0 ? a < b : byLabel < 0;
}

const QCollatorSortKey &ContactList::labelKey(const Entry &entry)
{
    if (!entry.label)
        entry.label = finderOrder().sortKey(entry.contact.label);
    return *entry.label;
}

bool ContactList::isAccepted(std::size_t entry) const
{
    Accepted &known = m_accepted[entry];
    if (known == Accepted::unknown) {
        const Entry &asked = m_entries[entry];
        const bool accepts = m_filter.accepts({m_store, m_state, asked.contact}, asked.filteredBy);
        known = accepts ? Accepted::yes : Accepted::no;
    }
    return known == Accepted::yes;
}

bool ContactList::matches(std::size_t entry) const
{
    if (!isAccepted(entry))
        return false;
    if (!m_needle)
        return true;
    readTexts(entry);
    return m_texts.contains(entry, *m_needle);
}

std::size_t ContactList::placeOf(const Order &order, std::uint32_t entry)
{
    const auto found = std::ranges::find(order, entry);
    return found == order.end() ? nowhere : std::size_t(found - order.begin());
}

/// Brings the changed contacts to their places: a few one by one, many by sorting anew.
void ContactList::settle()
{
    constexpr std::size_t few = 64;
    if (m_isDisplaced || m_displaced.size() > few)
        return arrange();
    const auto before = [this](std::uint32_t a, std::uint32_t b) { return precedes(a, b); };
    std::erase_if(m_order, [this](std::uint32_t entry) { return m_displaced.contains(entry); });
    for (const std::uint32_t entry : m_displaced)
        m_order.insert(std::ranges::lower_bound(m_order, entry, before), entry);
    m_displaced.clear();
}

void ContactList::arrange()
{
    std::ranges::sort(m_order, [this](std::uint32_t a, std::uint32_t b) { return precedes(a, b); });
    m_displaced.clear();
    m_isDisplaced = false;
    find();
}

void ContactList::find()
{
    m_shown.clear();
    std::ranges::copy_if(m_order, std::back_inserter(m_shown),
                         [this](std::uint32_t entry) { return matches(entry); });
}

} // namespace quenoria
