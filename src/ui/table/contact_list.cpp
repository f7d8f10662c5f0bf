#include "ui/table/contact_list.h"

#include "model/text_order.h"
#include "ui/table/search_texts.h"

#include <algorithm>
#include <numeric>

namespace quenoria {

namespace {

constexpr std::size_t nowhere = std::size_t(-1);

} // namespace

ContactList::ContactList(ProspectStore &store, TableState &state) : m_store(store), m_state(state)
{
    takeAll();
    orderAnew();
}

int ContactList::rowOf(const QString &id) const
{
    const QList<std::uint32_t> entries = entriesOf(id);
    return entries.isEmpty() ? none : rowOfEntry(entries.first());
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
    m_store.complete(); // the texts are read on several threads at once
    m_searchText = text;
    m_needle = text.trimmed().isEmpty() ? std::nullopt : std::optional(foldedForSearch(text));
    settle();
    find();
}

void ContactList::setFilter(const ContactFilter &filter)
{
    m_store.complete();
    m_filter = filter;
    filterAnew();
    settle();
    find();
}

void ContactList::filterAnew() { m_accepted.assign(m_entries.size(), Accepted::unknown); }

void ContactList::sort(SortColumn column, Qt::SortOrder order)
{
    m_store.complete();
    const bool sameKeys = column == m_sortColumn;
    m_sortColumn = column;
    m_sortOrder = order;
    if (!sameKeys)
        m_keys.setAll(m_entries.size(), sortValueOf());
    arrange();
}

QSet<QString> ContactList::rebuild()
{
    std::vector<QString> idsBefore;
    idsBefore.reserve(m_entries.size());
    for (const Entry &entry : m_entries)
        idsBefore.push_back(entry.contact.id);
    takeAll();
    if (keepOrder(idsBefore)) {
        m_isDisplaced = true;
        return {};
    }
    orderAnew();
    const QSet<QString> before(idsBefore.begin(), idsBefore.end());
    QSet<QString> came;
    for (const Entry &entry : m_entries) {
        if (!before.contains(entry.contact.id))
            came.insert(entry.contact.id);
    }
    return came;
}

void ContactList::orderAnew()
{
    m_order.resize(m_entries.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    arrange();
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

/// A total order: what is equal in every respect stays in the store's order.
bool ContactList::precedes(std::uint32_t a, std::uint32_t b) const
{
    if (const int byKey = m_keys.compare(a, b); byKey != 0)
        return (byKey < 0) == (m_sortOrder == Qt::AscendingOrder);
    needLabel(a);
    needLabel(b);
    const int byLabel = m_labels.at(a).compare(m_labels.at(b));
    return byLabel == 0 ? a < b : byLabel < 0;
}

void ContactList::needLabel(std::uint32_t entry) const
{
    if (!m_labels.has(entry))
        m_labels.set(entry, [this](std::string &out, std::size_t of) {
            finderOrder().appendKey(out, m_entries[of].contact.label);
        });
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
    return m_texts.at(entry).find(*m_needle) != std::string_view::npos;
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
    struct Place {
        quint64 head;
        std::uint32_t entry;
    };
    std::vector<Place> places; // the heads beside each other, which nearly always decide
    places.reserve(m_order.size());
    for (const std::uint32_t entry : m_order)
        places.push_back({m_keys.head(entry), entry});
    const bool ascends = m_sortOrder == Qt::AscendingOrder;
    std::ranges::sort(places, [this, ascends](const Place &a, const Place &b) {
        return a.head == b.head ? precedes(a.entry, b.entry) : (a.head < b.head) == ascends;
    });
    std::ranges::transform(places, m_order.begin(), &Place::entry);
    m_displaced.clear();
    m_isDisplaced = false;
    find();
}

void ContactList::find()
{
    if (m_needle)
        m_texts.complete(searchedTextOf());
    if (!m_needle && m_filter.isEmpty()) {
        m_shown = m_order;
        return;
    }
    m_shown.clear();
    std::ranges::copy_if(m_order, std::back_inserter(m_shown),
                         [this](std::uint32_t entry) { return matches(entry); });
}

} // namespace quenoria
