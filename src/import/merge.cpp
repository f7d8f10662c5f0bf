#include "import/contact_keys.h"
#include "import/erased_contacts.h"
#include "import/import_error.h"
#include "import/import_report.h"
#include "import/prospect_excel_importer.h"
#include "model/contact_rules.h"
#include "store/many_contacts.h"
#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/twins.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

QString reportMessage(const ProspectImportAnalysis &analysis)
{
    const auto line = [](auto count, const QString &text) { return QString::number(count) + text; };
    QStringList lines{line(analysis.prospects.size(), u" contact(s) ajouté(s)."_s),
                      line(analysis.duplicates, u" doublon(s) déjà présent(s)."_s)};
    if (!analysis.emailUpdates.empty()) {
        lines << line(analysis.emailUpdates.size(),
                      u" adresse(s) e-mail ajoutée(s) ou mise(s) à jour sur des contacts"
                      u" existants."_s);
    }
    lines << line(analysis.rowsWithoutMobile, u" ligne(s) sans mobile ni e-mail ignorée(s)."_s);
    if (analysis.invalidRows > 0) {
        lines << line(analysis.invalidRows, u" ligne(s) avec département invalide ignorée(s)."_s);
    }
    return lines.join(u'\n');
}

QString lineOnStops(const ManyContacts &marked)
{
    if (marked.changed.empty())
        return {};
    return u"\n%1 contact(s) marqué(s) STOP, à ne pas contacter."_s.arg(marked.changed.size());
}

QString lineOnErased(std::size_t leftOut)
{
    if (leftOut == 0)
        return {};
    return u"\n%1 ligne(s) laissée(s) de côté : données effacées à la demande du contact."_s.arg(
        leftOut);
}

/// A row that repeats the address under which a contact was first known must not undo what the
/// user made of it.
void dropUndoneAddresses(ProspectImportAnalysis &analysis, const ProspectStore &store)
{
    std::erase_if(analysis.emailUpdates, [&store](const auto &update) {
        const Prospect *known = store.prospect(update.first);
        return known && duplicateKey(*known) != update.first &&
               update.first == u"email:"_s + update.second;
    });
}

/// Contacts whom the workbook brings, or gives an address, that must not be contacted.
IdSet listedAsStopped(const ProspectImportAnalysis &analysis, const IdsByKey &knownIds,
                      const DoNotContact &listed)
{
    IdSet ids;
    if (listed.keys().empty())
        return ids;
    const auto isListed = [&listed](const QString &address) {
        return listed.contains(u"email:"_s + address);
    };
    for (const Prospect &contact : analysis.prospects) {
        if (listed.contains(contact.id) || isListed(contact.email.value_or(QString())))
            ids.insert(contact.id);
    }
    for (const auto &[key, address] : analysis.emailUpdates) {
        if (isListed(address))
            ids.insert(idOf(knownIds, key));
    }
    return ids;
}

void addDepartments(const std::vector<DepartmentInfo> &departments, StoreState &state)
{
    for (const DepartmentInfo &department : departments) {
        const auto sameCode = [&department](const DepartmentInfo &known) {
            return known.code == department.code;
        };
        if (!state.departments.find(sameCode))
            state.departments.append(department);
    }
    state.publish(Collection::departments);
}

ImportReport mergeWhole(ProspectImportAnalysis analysis, StoreState &state)
{
    Q_EMIT state.store.aboutToSweep();
    dropUndoneAddresses(analysis, state.store);
    const std::size_t leftOut = leaveOutErased(analysis, state.doNotContact.erased());
    ImportReport report;
    report.title = analysis.prospects.empty() ? u"Aucun nouveau contact"_s : u"Import terminé"_s;
    report.message = reportMessage(analysis) + lineOnErased(leftOut);

    // Keys of the contacts known before: the new ones have their key as id.
    const auto knownIds = analysis.emailUpdates.empty() ? IdsByKey() : idsByKey(state.mergedList());
    // Before the contacts are there: a cut between the two files must not leave them unmarked.
    report.message += lineOnStops(
        state.store.setStopped(true, listedAsStopped(analysis, knownIds, state.doNotContact)));
    if (!analysis.prospects.empty()) {
        state.customProspects.append(std::move(analysis.prospects));
        state.publish(Collection::customProspects);
    }
    std::map<Collection, IdSet> changed;
    for (const auto &[key, address] : analysis.emailUpdates) {
        const QString id = idOf(knownIds, key);
        if (const ContactOverride *edited = state.contactOverrides.find(id)) {
            ContactOverride updated = *edited;
            updated.email = address;
            state.contactOverrides.set(id, std::move(updated));
            changed[Collection::contactOverrides].insert(id);
        } else {
            state.emailOverrides.set(id, address);
            changed[Collection::emailOverrides].insert(id);
        }
    }
    for (auto &[collection, ids] : changed) // once each: a workbook may bring thousands
        state.publish(collection, std::move(ids));
    addDepartments(analysis.departments, state);
    return report;
}

} // namespace

/// By what each contact is, and by what it was before it was edited.
IdSet ProspectStore::duplicateKeys() const
{
    IdSet keys;
    for (const Prospect &prospect : allProspects()) {
        keys.insert(duplicateKey(prospect));
        keys.insert(firstId(prospect.id));
    }
    return keys;
}

ImportReport ProspectStore::importProspects(const QString &workbookPath)
{
    try {
        return merge(ProspectExcelImporter::analyze(workbookPath, duplicateKeys()));
    } catch (const std::bad_alloc &) {
        throw OutOfMemory();
    }
}

ImportReport ProspectStore::merge(ProspectImportAnalysis analysis)
{
    try {
        return mergeWhole(std::move(analysis), *m_state);
    } catch (const std::bad_alloc &) {
        for (const Collection reached : // what was taken in is shown and kept
             {Collection::statuses, Collection::customProspects, Collection::contactOverrides,
              Collection::emailOverrides, Collection::departments})
            m_state->publish(reached);
        throw OutOfMemory();
    }
}

} // namespace quenoria
