#include "import/prospect_excel_importer.h"

#include "import/contact_cells.h"
#include "import/contact_columns.h"
#include "import/department_details.h"
#include "import/excel_workbook_reader.h"
#include "import/import_allowance.h"
#include "import/row_listener.h"
#include "import/row_relay.h"
#include "model/contact_rules.h"
#include "model/key_index.h"
#include "model/text_order.h"

#include <unordered_set>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unrecognizedColumns = u"Impossible de trouver la colonne « Nom de l’entreprise » "
                                    u"avec une colonne « Téléphone mobile »"
                                    u" ou « Adresse e-mail » dans ce fichier."_s;

class Analysis : public WorkbookSink {
public:
    Analysis(const IdSet &existingIDs, std::stop_token stop, RowListener *listener)
        : m_existingIDs(existingIDs), m_stop(std::move(stop)), m_listener(listener)
    {
    }

    void beginWorkbook(const WorkbookFrame &frame) override;
    void beginSheet() override;
    void row(const WorksheetRow &row) override;
    ProspectImportAnalysis finish();

private:
    RowFate readContact(const WorksheetRow &row);
    void noteAddress(const QString &id, const QString &address);
    auto addedId() const
    {
        return [this](quint32 place) -> const QString & { return m_result.prospects[place].id; };
    }
    bool isKnown(const QString &id) const;
    void keep(Prospect contact, const DepartmentInfo &department, const QString &profession);

    ImportAllowance m_allowance;
    std::optional<ContactColumns> m_columns;
    const IdSet &m_existingIDs;
    KeyIndex m_added; ///< the contacts of the result: a set would hold each id a second time
    std::map<QString, DepartmentInfo> m_departments; ///< by code
    std::unordered_set<QString> m_professions;       ///< one text for all who share a trade
    std::stop_token m_stop;
    RowListener *m_listener; ///< or null
    ProspectImportAnalysis m_result;
};

void Analysis::beginWorkbook(const WorkbookFrame &frame)
{
    m_allowance.grant(frame);
    if (m_listener)
        m_listener->beginWorkbook(frame);
}

void Analysis::beginSheet()
{
    m_columns.reset();
    if (m_listener)
        m_listener->beginSheet();
}

void Analysis::row(const WorksheetRow &row)
{
    if (m_stop.stop_requested()) // a batch of long texts takes its time
        throw ImportAbandoned();
    if (const auto columns = ContactColumns::of(row); columns.makeHeader()) {
        m_columns = columns;
        ++m_result.headerRows;
        if (m_listener)
            m_listener->header(row, columns);
    } else if (m_columns) {
        const RowFate fate = readContact(row);
        if (m_listener)
            m_listener->contactRow(row, *m_columns, fate);
    }
}

RowFate Analysis::readContact(const WorksheetRow &row)
{
    const QString name = m_columns->text(row, ColumnRole::name);
    if (name.isEmpty())
        return {RowEnd::nameless, {}, {}};
    const auto mobile = mobileIn(m_columns->cell(row, ColumnRole::mobile));
    auto email = emailIn(m_columns->cell(row, ColumnRole::email));
    if (!mobile && !email) {
        ++m_result.rowsWithoutMobile;
        return {RowEnd::unreachable, {}, {}};
    }
    const auto department = departmentDetails(m_columns->cell(row, ColumnRole::department),
                                              m_columns->cell(row, ColumnRole::postcode));
    if (!department) {
        ++m_result.invalidRows;
        return {RowEnd::noDepartment, {}, {}};
    }
    QString id = mobile ? *mobile : u"email:"_s + *email;
    if (isKnown(id)) {
        if (email)
            noteAddress(id, *email);
        ++m_result.duplicates;
        return {RowEnd::duplicate, std::move(id), std::move(email)};
    }
    Prospect contact;
    contact.id = id;
    contact.phone = mobile ? formatPhone(*mobile) : QString();
    contact.label =
        contactLabel(name, m_columns->text(row, ColumnRole::town), department->code, contact.phone);
    contact.email = email;
    contact.isCustom = true;
    keep(std::move(contact), *department, m_columns->text(row, ColumnRole::profession));
    return {RowEnd::added, std::move(id), std::move(email)};
}

bool Analysis::isKnown(const QString &id) const
{
    return m_existingIDs.contains(id) || m_added.find(id, addedId()) != KeyIndex::none;
}

void Analysis::noteAddress(const QString &id, const QString &address)
{
    QString &noted = m_result.emailUpdates[id];
    if (noted.isNull())
        m_allowance.spend(id);
    if (address.size() > noted.size())
        m_allowance.spend(address);
    noted = address;
}

void Analysis::keep(Prospect contact, const DepartmentInfo &department, const QString &profession)
{
    const auto [known, isNew] = m_departments.try_emplace(department.code);
    if (isNew || known->second.name != department.name) {
        m_allowance.spend(department.name);
        known->second = department;
    }
    contact.department = known->first;
    if (!profession.isEmpty()) {
        auto shared = m_professions.find(profession);
        if (shared == m_professions.end()) {
            m_allowance.spend(profession);
            shared = m_professions.insert(profession).first;
        }
        contact.profession = *shared;
    }
    m_allowance.spend(contact);
    m_result.prospects.push_back(std::move(contact));
    m_added.insert(quint32(m_result.prospects.size() - 1), addedId());
}

ProspectImportAnalysis Analysis::finish()
{
    if (m_result.headerRows == 0)
        throw ImportError(unrecognizedColumns);
    for (auto &[code, department] : m_departments)
        m_result.departments.push_back(std::move(department));
    std::ranges::stable_sort(m_result.departments,
                             [](const DepartmentInfo &a, const DepartmentInfo &b) {
                                 return finderOrder().compare(a.code, b.code) < 0;
                             });
    return std::move(m_result);
}

} // namespace

ProspectImportAnalysis ProspectExcelImporter::analyze(const QString &workbookPath,
                                                      const IdSet &existingIDs,
                                                      const ImportWatch &watch,
                                                      RowListener *listener)
{
    try {
        Analysis analysis(existingIDs, watch.stop, listener);
        RowRelay relay(analysis);
        ExcelWorkbookReader::readSheets(workbookPath, relay, watch);
        relay.finish();
        return analysis.finish();
    } catch (const std::bad_alloc &) {
        throw OutOfMemory();
    }
}

} // namespace quenoria
