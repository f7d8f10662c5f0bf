#pragma once

#include "model/key_index.h"
#include "ui/table/contact_filter.h"
#include "ui/table/sort_keys.h"

#include <QHash>
#include <QSet>

#include <array>
#include <map>
#include <set>

namespace quenoria {

/// The contacts as the table displays them: those that the search finds and the filter accepts, in
/// the order of one column. What a search or a comparison needs of a contact is computed once and
/// kept until the contact changes, so that a keystroke costs one pass and a change of one contact
/// next to none.
///
/// No row moves under the hand: a contact that changed keeps its place, though it would sort or be
/// searched otherwise, until the user sorts, searches or adds.
class ContactList {
public:
    static constexpr int none = -1;

    ContactList(ProspectStore &store, TableState &state);

    int size() const { return int(m_shown.size()); }
    const Prospect &at(int row) const { return m_entries[m_shown[std::size_t(row)]].contact; }
    int rowOf(const QString &id) const; ///< or none
    std::uint32_t entryAt(int row) const { return m_shown[std::size_t(row)]; }
    int rowOfEntry(std::uint32_t entry) const; ///< or none
    std::vector<int> rowsOfEntries() const;    ///< of each entry, or none

    // Counted over all contacts, found or not.
    int total() const { return int(m_entries.size()); }
    int sentOn(Channel channel) const { return m_sent[std::size_t(channel)]; } ///< contacts

    void setSearchText(const QString &text);
    const QString &searchText() const { return m_searchText; }
    void setFilter(const ContactFilter &filter);
    const ContactFilter &filter() const { return m_filter; }
    void filterAnew(); ///< at the next search or sort: files came or went

    /// How many of all contacts have each value; absent ones count as empty.
    template <typename Text>
    std::map<QString, int> countBy(Text Prospect::*member) const
    {
        QHash<QString, int> counts;
        for (const Entry &entry : m_entries)
            ++counts[std::optional<QString>(entry.contact.*member).value_or(QString())];
        return {counts.keyValueBegin(), counts.keyValueEnd()};
    }

    void sort(SortColumn column, Qt::SortOrder order);
    SortColumn sortColumn() const { return m_sortColumn; }
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    /// Takes the store's whole list again; the contacts that were not in it before.
    QSet<QString> rebuild();

    /// Takes the records of one contact again, which may stand in the list more than once; the row
    /// that shows it, or none.
    int reload(std::uint32_t entry);
    void reloadEach(const IdSet &ids); ///< of many contacts
    QList<std::uint32_t> entriesOf(const QString &id) const;

private:
    using Order = std::vector<std::uint32_t>;

    struct Entry {
        Prospect contact;
        std::array<bool, allChannels.size()> sent; ///< by channel
        FilteredBy filteredBy;
    };

    void takeAll();
    void indexIds() const;
    void orderAnew();
    void take(std::uint32_t entry);
    void readRecords(Entry &entry) const;
    void tally(const Entry &entry, int by);
    SortKeys::ValueOf sortValueOf() const;
    TextBuffer::Append searchedTextOf() const;
    void needLabel(std::uint32_t entry) const;
    bool precedes(std::uint32_t a, std::uint32_t b) const;
    bool isAccepted(std::size_t entry) const;
    bool matches(std::size_t entry) const;
    static std::size_t placeOf(const Order &order, std::uint32_t entry);
    bool keepOrder(const std::vector<QString> &idsBefore);
    void settle();
    void arrange();
    void find();

    ProspectStore &m_store;
    TableState &m_state;
    std::vector<Entry> m_entries;                            ///< in the store's order
    mutable KeyIndex m_firstById;                            ///< of these entries
    mutable QMultiHash<QString, std::uint32_t> m_othersById; ///< of an older folder, sharing ids
    mutable bool m_idsAreIndexed = false;
    Order m_order;                       ///< every entry, sorted
    Order m_shown;                       ///< those that the search found, in that order
    std::set<std::uint32_t> m_displaced; ///< entries that would sort elsewhere by now
    bool m_isDisplaced = false;          ///< any entry might
    QString m_searchText;
    std::optional<std::string> m_needle; ///< folded; none when nothing is looked for
    ContactFilter m_filter;
    enum class Accepted : char { unknown, no, yes };
    mutable std::vector<Accepted> m_accepted; ///< by the filter, asked once of each entry
    mutable TextBuffer m_texts;               ///< folded, read once a search looks for them
    SortKeys m_keys;
    mutable TextBuffer m_labels; ///< keys of the names, each made once a comparison needs it
    SortColumn m_sortColumn = SortColumn::name;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    std::array<int, allChannels.size()> m_sent{}; ///< contacts, by channel
};

} // namespace quenoria
