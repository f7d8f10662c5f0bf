#include "ui/table/contact_list.h"

#include "model/text_order.h"

#include <QLocale>

#include <algorithm>
#include <numeric>

namespace quenoria {

namespace {

constexpr std::size_t nowhere = std::size_t(-1);
constexpr int usualTextLength = 256;
constexpr QChar textSeparator(0xFFFF); // no character: no search runs over the end of a text

/// Two texts that differ by case only, in the user's language, fold to the same.
QString folded(const QString &text)
{
    static const QLocale locale = displayLocale();
    return locale.toLower(text.normalized(QString::NormalizationForm_C));
}

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

void ContactList::setSearchText(const QString &text)
{
    m_searchText = text;
    m_needle = text.trimmed().isEmpty() ? QString() : folded(text);
    if (!m_needle.isNull()) {
        for (const Entry &entry : m_entries) // in the store's order, in which its records lie
            textsOf(entry);
    }
    filter();
}

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

void ContactList::rebuild()
{
    m_entries.clear();
    m_entriesById.clear();
    m_smsSent = 0;
    m_emailsSent = 0;
    m_entries.reserve(m_store.allProspects().size());
    for (const Prospect &contact : m_store.allProspects()) {
        m_entriesById.insert(contact.id, std::uint32_t(m_entries.size()));
        tally(m_entries.emplace_back(fresh(contact)), 1);
    }
    m_order.resize(m_entries.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    arrange();
}

ContactList::Change ContactList::reload(std::uint32_t entry)
{
    Entry &kept = m_entries[entry];
    tally(kept, -1);
    kept = fresh(Prospect(kept.contact));
    tally(kept, 1);

    const std::size_t place = placeOf(m_order, entry);
    m_order.erase(m_order.begin() + std::ptrdiff_t(place));
    m_order.insert(m_order.begin() + std::ptrdiff_t(targetIn(m_order, nowhere, entry)), entry);

    const std::size_t from = placeOf(m_shown, entry);
    return {rowOfEntry(entry), matches(kept) ? int(targetIn(m_shown, from, entry)) : none};
}

void ContactList::move(std::uint32_t entry, Change change)
{
    if (change.from != none)
        m_shown.erase(m_shown.begin() + change.from);
    if (change.to != none)
        m_shown.insert(m_shown.begin() + change.to, entry);
}

ContactList::Entry ContactList::fresh(const Prospect &contact) const
{
    const SendStatus *sms = m_store.status(contact);
    const EmailSendStatus *email = m_store.emailStatus(contact);
    return {contact, orderKey(contact), sms && sms->sent, email && email->sent};
}

void ContactList::tally(const Entry &entry, int by)
{
    m_smsSent += entry.smsSent ? by : 0;
    m_emailsSent += entry.emailSent ? by : 0;
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

const QString &ContactList::textsOf(const Entry &entry) const
{
    if (!entry.texts.isNull())
        return entry.texts;
    const Prospect &contact = entry.contact;
    QString texts;
    texts.reserve(usualTextLength);
    const auto add = [&texts](const QString &text) {
        texts += text;
        texts += textSeparator;
    };
    add(contact.label);
    add(contact.phone);
    add(contact.email.value_or(QString()));
    add(contact.department);
    add(m_store.departmentName(contact.department));
    add(contact.profession.value_or(QString()));
    add(m_store.assignedMessage(contact).title);
    add(m_store.assignedEmailTemplate(contact).title);
    add(m_store.attachmentName(contact).value_or(QString()));
    if (const SendStatus *status = m_store.status(contact))
        add(status->comment.value_or(QString()));
    return entry.texts = folded(texts);
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

bool ContactList::matches(const Entry &entry) const
{
    if (m_needle.isNull())
        return true;
    return textsOf(entry).contains(m_needle);
}

std::size_t ContactList::placeOf(const Order &order, std::uint32_t entry)
{
    const auto found = std::ranges::find(order, entry);
    return found == order.end() ? nowhere : std::size_t(found - order.begin());
}

/// Where the entry belongs in an order that is sorted but for the one place to leave out.
std::size_t ContactList::targetIn(const Order &order, std::size_t without,
                                  std::uint32_t entry) const
{
    const auto before = [this](std::uint32_t a, std::uint32_t b) { return precedes(a, b); };
    const auto gap = order.begin() + std::ptrdiff_t(std::min(without, order.size()));
    auto target = std::lower_bound(order.begin(), gap, entry, before);
    if (target != gap || gap == order.end())
        return std::size_t(target - order.begin());
    target = std::lower_bound(gap + 1, order.end(), entry, before);
    return std::size_t(target - order.begin()) - 1;
}

void ContactList::arrange()
{
    std::ranges::sort(m_order, [this](std::uint32_t a, std::uint32_t b) { return precedes(a, b); });
    filter();
}

void ContactList::filter()
{
    m_shown.clear();
    std::ranges::copy_if(m_order, std::back_inserter(m_shown),
                         [this](std::uint32_t entry) { return matches(m_entries[entry]); });
}

} // namespace quenoria
