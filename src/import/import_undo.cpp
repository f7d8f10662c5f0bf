#include "import/import_undo.h"

#include "import/contact_keys.h"
#include "import/prospect_excel_importer.h"
#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/together.h"

#include <QScopedValueRollback>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

template <typename Record>
std::optional<Record> copyOf(const Record *record)
{
    return record ? std::optional(*record) : std::nullopt;
}

template <typename Record>
void noteBefore(std::map<QString, Replaced<Record>> &records, const Dictionary<Record> &stored,
                const QString &id)
{
    records[id].before = copyOf(stored.find(id));
}

template <typename Record>
void noteAfter(std::map<QString, Replaced<Record>> &records, const Dictionary<Record> &stored)
{
    for (auto &[id, record] : records)
        record.after = copyOf(stored.find(id));
}

template <typename Record>
bool isSame(const std::pair<const QString, Replaced<Record>> &each)
{
    return each.second.before == each.second.after;
}

/// Notes what stands there now, and drops what is as it was; of new contacts a record that was
/// there before them is worth knowing.
void complete(ImportedChanges &changes, const ProspectStore &store)
{
    noteAfter(changes.statuses, store.statuses());
    noteAfter(changes.emailOverrides, store.emailOverrides());
    noteAfter(changes.contactOverrides, store.contactOverrides());
    std::erase_if(changes.emailOverrides, isSame<QString>);
    std::erase_if(changes.contactOverrides, isSame<ContactOverride>);
    std::erase_if(changes.statuses, [&changes](const auto &each) {
        return isSame(each) && !changes.hasAdded(each.first);
    });
}

bool mayBeMarked(const Prospect &contact, const DoNotContact &listed)
{
    return !listed.keys().empty() &&
           (listed.contains(contact.id) ||
            listed.contains(u"email:"_s + contact.email.value_or(QString())));
}

/// What an import may change, as it is before.
ImportedChanges before(const ProspectImportAnalysis &analysis, const ProspectStore &store)
{
    ImportedChanges changes;
    changes.added.reserve(analysis.prospects.size());
    for (const Prospect &contact : analysis.prospects)
        changes.added.push_back(contact.id);
    std::ranges::sort(changes.added);
    for (const Prospect &contact : analysis.prospects) {
        if (store.statuses().contains(contact.id) || mayBeMarked(contact, store.doNotContact()))
            noteBefore(changes.statuses, store.statuses(), contact.id);
    }
    if (analysis.emailUpdates.empty())
        return changes;
    const IdsByKey ids = idsByKey(store.allProspects());
    for (const auto &[key, address] : analysis.emailUpdates) {
        const QString &id = idOf(ids, key);
        noteBefore(changes.emailOverrides, store.emailOverrides(), id);
        noteBefore(changes.contactOverrides, store.contactOverrides(), id);
        noteBefore(changes.statuses, store.statuses(), id);
    }
    return changes;
}

template <typename Record>
bool isAsLeft(const std::map<QString, Replaced<Record>> &records, const Dictionary<Record> &stored)
{
    return std::ranges::all_of(records, [&stored](const auto &each) {
        return copyOf(stored.find(each.first)) == each.second.after;
    });
}

/// Whether the contact's entry there is the import's own.
bool hasBrought(const ImportedChanges &changes, Collection collection, const QString &id)
{
    return (collection == Collection::statuses && changes.statuses.contains(id)) ||
           (collection == Collection::emailOverrides && changes.emailOverrides.contains(id)) ||
           (collection == Collection::contactOverrides && changes.contactOverrides.contains(id));
}

/// Whether nothing is known of a new contact but what the import brought.
bool isNew(const QString &id, const ImportedChanges &changes, const ProspectStore &store)
{
    return store.prospect(id) &&
           std::ranges::all_of(collections(), [&](const CollectionDescriptor &row) {
               return !store.holds(row.collection, id) || hasBrought(changes, row.collection, id);
           });
}

/// The truth, whatever was announced.
bool isUntouched(const ImportedChanges &changes, const ProspectStore &store)
{
    return isAsLeft(changes.statuses, store.statuses()) &&
           isAsLeft(changes.emailOverrides, store.emailOverrides()) &&
           isAsLeft(changes.contactOverrides, store.contactOverrides()) &&
           std::ranges::all_of(changes.added,
                               [&](const QString &id) { return isNew(id, changes, store); });
}

template <typename Record>
IdSet putBack(Dictionary<Record> &records, const std::map<QString, Replaced<Record>> &changed)
{
    IdSet ids;
    for (const auto &[id, record] : changed) {
        if (record.before)
            records.set(id, *record.before);
        else
            records.remove(id);
        ids.insert(id);
    }
    return ids;
}

/// A department that somebody else has by now stays.
void dropUnused(const std::vector<DepartmentInfo> &departments, StoreState &state)
{
    if (departments.empty())
        return;
    QSet<QString> used;
    for (const Prospect &contact : state.mergedList())
        used.insert(contact.department);
    state.departments.removeIf([&](const DepartmentInfo &department) {
        return !used.contains(department.code) &&
               std::ranges::find(departments, department) != departments.end();
    });
    state.publish(Collection::departments);
}

} // namespace

bool ImportedChanges::empty() const
{
    return added.empty() && emailOverrides.empty() && contactOverrides.empty() && statuses.empty();
}

bool ImportedChanges::hasAdded(const QString &id) const
{
    return std::ranges::binary_search(added, id);
}

bool ImportedChanges::concern(const QString &id) const
{
    return hasAdded(id) || emailOverrides.contains(id) || contactOverrides.contains(id) ||
           statuses.contains(id);
}

ImportUndo::ImportUndo(ProspectStore &store, QObject *parent) : QObject(parent), m_store(store)
{
    connect(&store, &ProspectStore::published, this, &ImportUndo::follow);
}

ImportReport ImportUndo::merge(ProspectImportAnalysis analysis)
{
    forget();
    const QScopedValueRollback atWork(m_isAtWork, true);
    ImportedChanges changes = before(analysis, m_store);
    const std::size_t departments = m_store.departments().size();
    ImportReport report = m_store.merge(std::move(analysis));
    complete(changes, m_store);
    for (std::size_t each = departments; each < m_store.departments().size(); ++each)
        changes.departments.push_back(m_store.departments()[each]);
    m_changes = std::move(changes);
    Q_EMIT offeredChanged();
    return report;
}

void ImportUndo::noteSend(const QString &contactId)
{
    if (m_changes.concern(contactId))
        forget();
}

bool ImportUndo::undo()
{
    if (!isOffered() || !isUntouched(m_changes, m_store)) {
        forget();
        return false;
    }
    const QScopedValueRollback atWork(m_isAtWork, true);
    m_store.undoImport(m_changes);
    forget();
    return true;
}

void ImportUndo::follow(const Change &change)
{
    const auto *contacts = std::get_if<ContactsChanged>(&change);
    if (!m_isAtWork && contacts && std::ranges::any_of(contacts->ids, [this](const QString &id) {
            return m_changes.concern(id);
        }))
        forget();
}

void ImportUndo::forget()
{
    if (isOffered()) {
        m_changes = {};
        Q_EMIT offeredChanged();
    }
}

/// Contacts first: a cut before the marks go leaves nobody unmarked.
void ProspectStore::undoImport(const ImportedChanges &changes)
{
    Q_EMIT aboutToSweep();
    const Together together(*this);
    const auto isAdded = [&changes](const QString &id) { return changes.hasAdded(id); };
    if (!changes.added.empty()) {
        m_state->customProspects.removeIf(
            [&](const Prospect &contact) { return isAdded(contact.id); });
        m_state->publish(Collection::customProspects);
    }
    for (const Channel channel : allChannels) {
        IdSet gone;
        std::ranges::copy_if(m_state->selection(channel), std::inserter(gone, gone.end()), isAdded);
        for (const QString &id : gone)
            m_state->select(channel, false, id);
    }
    const auto announced = [this](Collection collection, IdSet ids) {
        if (!ids.empty())
            m_state->publish(collection, std::move(ids));
    };
    announced(Collection::statuses,
              putBack(m_state->channels.of<Channel::sms>().statuses, changes.statuses));
    announced(Collection::emailOverrides, putBack(m_state->emailOverrides, changes.emailOverrides));
    announced(Collection::contactOverrides,
              putBack(m_state->contactOverrides, changes.contactOverrides));
    dropUnused(changes.departments, *m_state);
}

} // namespace quenoria
