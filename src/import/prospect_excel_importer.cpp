#include "import/prospect_excel_importer.h"

#include "import/contact_cells.h"
#include "import/department_details.h"
#include "import/excel_workbook_reader.h"
#include "import/header_text.h"
#include "import/import_allowance.h"
#include "import/reader_limits.h"
#include "import/row_relay.h"
#include "model/contact_rules.h"
#include "model/text_order.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString unrecognizedColumns = u"Impossible de trouver la colonne « Nom de l’entreprise » "
                                    u"avec une colonne « Téléphone mobile »"
                                    u" ou « Adresse e-mail » dans ce fichier."_s;

/// Where each role stands in the rows below a header.
class Columns {
public:
    static Columns of(const WorksheetRow &row)
    {
        Columns columns;
        for (const WorksheetCell &cell : row.cells()) {
            if (const auto role = columnRole(cell.text); role && !columns.find(*role))
                columns.m_positions[std::size_t(*role)] = cell.column;
        }
        return columns;
    }

    bool makeHeader() const
    {
        return find(ColumnRole::name) && (find(ColumnRole::mobile) || find(ColumnRole::email));
    }

    std::string_view cell(const WorksheetRow &row, ColumnRole role) const
    {
        const auto column = find(role);
        const std::string_view text = column ? row[*column] : std::string_view();
        readerLimits::contactCellBytes.check(text.size());
        return text;
    }

    QString text(const WorksheetRow &row, ColumnRole role) const
    {
        const std::string_view utf8 = cell(row, role);
        return QString::fromUtf8(utf8.data(), qsizetype(utf8.size())).trimmed();
    }

private:
    std::optional<std::size_t> find(ColumnRole role) const
    {
        return m_positions[std::size_t(role)];
    }

    std::array<std::optional<std::size_t>, std::size_t(ColumnRole::profession) + 1> m_positions;
};

/// The contact ids met so far. Mobiles are kept as numbers: a hundred thousand texts would cost
/// more than all the rest of the analysis.
class KnownIds {
public:
    explicit KnownIds(const IdSet &ids)
    {
        for (const QString &id : ids)
            insert(id);
    }

    bool insert(const QString &id) ///< false when the id was there
    {
        const bool isMobile = id.size() == mobileLength && std::ranges::all_of(id, isDigit);
        return isMobile ? add(m_mobiles, id.toULongLong()) : add(m_others, id);
    }

private:
    static constexpr qsizetype mobileLength = 10;

    static bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

    template <typename Value>
    static bool add(QSet<Value> &set, const Value &value)
    {
        const qsizetype before = set.size();
        set.insert(value);
        return set.size() > before;
    }

    QSet<qulonglong> m_mobiles;
    QSet<QString> m_others;
};

class Analysis : public WorkbookSink {
public:
    Analysis(const IdSet &existingIDs, std::stop_token stop)
        : m_knownIDs(existingIDs), m_stop(std::move(stop))
    {
    }

    void beginWorkbook(const WorkbookFrame &frame) override { m_allowance.grant(frame); }
    void beginSheet() override { m_columns.reset(); }
    void row(const WorksheetRow &row) override;
    ProspectImportAnalysis finish();

private:
    void readContact(const WorksheetRow &row);
    void noteAddress(const QString &id, const QString &address);
    void keep(Prospect contact, const DepartmentInfo &department, const QString &profession);

    ImportAllowance m_allowance;
    std::optional<Columns> m_columns;
    KnownIds m_knownIDs;
    std::map<QString, DepartmentInfo> m_departments; ///< by code
    QSet<QString> m_professions;                     ///< one text for all who share a trade
    std::stop_token m_stop;
    ProspectImportAnalysis m_result;
};

void Analysis::row(const WorksheetRow &row)
{
    if (m_stop.stop_requested()) // a batch of long texts takes its time
        throw ImportAbandoned();
    if (const Columns columns = Columns::of(row); columns.makeHeader()) {
        m_columns = columns;
        ++m_result.headerRows;
    } else if (m_columns) {
        readContact(row);
    }
}

void Analysis::readContact(const WorksheetRow &row)
{
    const QString name = m_columns->text(row, ColumnRole::name);
    if (name.isEmpty())
        return;
    const auto mobile = mobileIn(m_columns->cell(row, ColumnRole::mobile));
    const auto email = emailIn(m_columns->cell(row, ColumnRole::email));
    if (!mobile && !email) {
        ++m_result.rowsWithoutMobile;
        return;
    }
    const auto department = departmentDetails(m_columns->cell(row, ColumnRole::department),
                                              m_columns->cell(row, ColumnRole::postcode));
    if (!department) {
        ++m_result.invalidRows;
        return;
    }
    const QString id = mobile ? *mobile : u"email:"_s + *email;
    if (!m_knownIDs.insert(id)) {
        if (email)
            noteAddress(id, *email);
        ++m_result.duplicates;
        return;
    }
    Prospect contact;
    contact.id = id;
    contact.phone = mobile ? formatPhone(*mobile) : QString();
    contact.label =
        contactLabel(name, m_columns->text(row, ColumnRole::town), department->code, contact.phone);
    contact.email = email;
    contact.isCustom = true;
    keep(std::move(contact), *department, m_columns->text(row, ColumnRole::profession));
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
    m_allowance.spend(contact);
    const auto [known, isNew] = m_departments.try_emplace(department.code);
    if (isNew || known->second.name != department.name) {
        m_allowance.spend(department.name);
        known->second = department;
    }
    contact.department = known->first;
    if (!profession.isEmpty()) {
        auto shared = m_professions.constFind(profession);
        if (shared == m_professions.cend()) {
            m_allowance.spend(profession);
            shared = m_professions.insert(profession);
        }
        contact.profession = *shared;
    }
    m_result.prospects.push_back(std::move(contact));
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
                                                      const ImportWatch &watch)
{
    try {
        Analysis analysis(existingIDs, watch.stop);
        RowRelay relay(analysis);
        ExcelWorkbookReader::readSheets(workbookPath, relay, watch);
        relay.finish();
        return analysis.finish();
    } catch (const std::bad_alloc &) {
        throw OutOfMemory();
    }
}

} // namespace quenoria
