#include "import/prospect_excel_importer.h"

#include "import/contact_cells.h"
#include "import/department_details.h"
#include "import/excel_workbook_reader.h"
#include "import/header_text.h"
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
        for (const auto &[column, text] : row.cells()) {
            if (const auto role = columnRole(text); role && !columns.find(*role))
                columns.m_positions[std::size_t(*role)] = column;
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
        return column ? row[*column] : std::string_view();
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
    explicit Analysis(const IdSet &existingIDs) : m_knownIDs(existingIDs) {}

    void beginSheet() override { m_columns.reset(); }
    void row(const WorksheetRow &row) override;
    ProspectImportAnalysis finish();

private:
    void readContact(const WorksheetRow &row);

    std::optional<Columns> m_columns;
    KnownIds m_knownIDs;
    std::map<QString, DepartmentInfo> m_departments; ///< by code
    QSet<QString> m_professions;                     ///< one text for all who share a trade
    ProspectImportAnalysis m_result;
};

void Analysis::row(const WorksheetRow &row)
{
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
            m_result.emailUpdates[id] = *email;
        ++m_result.duplicates;
        return;
    }
    Prospect contact;
    contact.id = id;
    contact.phone = mobile ? formatPhone(*mobile) : QString();
    contact.label =
        contactLabel(name, m_columns->text(row, ColumnRole::town), department->code, contact.phone);
    contact.email = email;
    contact.department = m_departments.insert_or_assign(department->code, *department).first->first;
    contact.isCustom = true;
    const QString profession = m_columns->text(row, ColumnRole::profession);
    if (!profession.isEmpty())
        contact.profession = *m_professions.insert(profession);
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
    Analysis analysis(existingIDs);
    RowRelay relay(analysis);
    ExcelWorkbookReader::readSheets(workbookPath, relay, watch);
    relay.finish();
    return analysis.finish();
}

} // namespace quenoria
