#include "import/workbook_check.h"

#include "import/contact_columns.h"
#include "import/erased_contacts.h"
#include "import/row_words.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr std::size_t mostHeaders = 20;
constexpr qsizetype mostTitles = 40;
const QString emailPrefix = u"email:"_s;
const QString erasedRow = u"Laissé de côté : données effacées à la demande du contact"_s;

QString roleName(ColumnRole role)
{
    switch (role) {
    case ColumnRole::name:
        return u"Nom"_s;
    case ColumnRole::mobile:
        return u"Mobile"_s;
    case ColumnRole::email:
        return u"E-mail"_s;
    case ColumnRole::department:
        return u"Département"_s;
    case ColumnRole::town:
        return u"Commune"_s;
    case ColumnRole::postcode:
        return u"Code postal"_s;
    case ColumnRole::profession:
        break;
    }
    return u"Métier"_s;
}

QString titleInWords(const QString &role, const QString &title)
{
    const bool saysSo = role.compare(title, Qt::CaseInsensitive) == 0;
    return saysSo ? role : u"%1 (« %2 »)"_s.arg(role, title);
}

CheckedHeader described(const WorksheetRow &row, const ContactColumns &columns, int sheet)
{
    CheckedHeader header{sheet, row.number(), {}, {}};
    for (const WorksheetCell &cell : row.cells()) {
        const QString title = shownCell(cell.text);
        const auto role = columnRole(cell.text);
        const bool isUsed = role && columns.find(*role) == cell.column;
        QStringList &titles = isUsed ? header.used : header.unused;
        if (!title.isEmpty() && titles.size() < mostTitles)
            titles << (isUsed ? titleInWords(roleName(*role), title) : title);
    }
    return header;
}

bool isLeftOut(CheckedEnd end)
{
    return end == CheckedEnd::nameless || end == CheckedEnd::unreachable ||
           end == CheckedEnd::noDepartment;
}

QString placeOf(const WorksheetRow &row, const ContactColumns &columns)
{
    const QString department = shownCell(columns.rawCell(row, ColumnRole::department));
    const QString postcode = shownCell(columns.rawCell(row, ColumnRole::postcode));
    return department.isEmpty() || postcode.isEmpty() ? department + postcode
                                                      : department + u", "_s + postcode;
}

} // namespace

void WorkbookChecker::beginSheet()
{
    ++m_check.sheets;
    m_sheetHasHeader = false;
}

void WorkbookChecker::header(const WorksheetRow &row, const ContactColumns &columns)
{
    m_check.sheetsWithHeader += m_sheetHasHeader ? 0 : 1;
    m_sheetHasHeader = true;
    if (m_check.headers.size() < mostHeaders)
        m_check.headers.push_back(described(row, columns, m_check.sheets));
    m_check.rejected->beginTable(row);
}

void WorkbookChecker::contactRow(const WorksheetRow &row, const ContactColumns &columns,
                                 const RowFate &fate)
{
    const auto cell = [&](ColumnRole role) { return shownCell(columns.rawCell(row, role)); };
    const bool isBlank = fate.end == RowEnd::nameless && cell(ColumnRole::mobile).isEmpty() &&
                         cell(ColumnRole::email).isEmpty();
    if (isBlank)
        return;
    Outcome outcome = outcomeOf(row, columns, fate);
    if (isLeftOut(outcome.end))
        m_check.rejected->add(row, outcome.words);
    if (std::size_t(m_check.counts[std::size_t(outcome.end)]++) >= WorkbookCheck::mostRows)
        return;
    m_check.rows.push_back({m_check.sheets, row.number(), outcome.end, cell(ColumnRole::name),
                            cell(ColumnRole::mobile), cell(ColumnRole::email),
                            placeOf(row, columns), std::move(outcome.words)});
}

WorkbookChecker::Outcome WorkbookChecker::outcomeOf(const WorksheetRow &row,
                                                    const ContactColumns &columns,
                                                    const RowFate &fate)
{
    switch (fate.end) {
    case RowEnd::duplicate:
        return outcomeOfRepeat(fate);
    case RowEnd::nameless:
        return {CheckedEnd::nameless, rejectionOf(fate.end, row, columns)};
    case RowEnd::unreachable:
        return {CheckedEnd::unreachable, rejectionOf(fate.end, row, columns)};
    case RowEnd::noDepartment:
        return {CheckedEnd::noDepartment, rejectionOf(fate.end, row, columns)};
    case RowEnd::added:
        break;
    }
    if (isErasedContact(m_known.erased, fate.key, fate.email)) {
        m_erased.insert(fate.key);
        return {CheckedEnd::erased, erasedRow};
    }
    const QString email = fate.email.value_or(QString());
    m_known.byKey[fate.key] = {rowName(row.number()), email};
    const bool isListed = m_known.notToContact.contains(fate.key) ||
                          m_known.notToContact.contains(emailPrefix + email);
    return {CheckedEnd::added, isListed ? u"Nouveau contact, à ne pas contacter : marqué STOP"_s
                                        : u"Nouveau contact"_s};
}

/// Of an address by which the contact is known, a merge makes no news.
WorkbookChecker::Outcome WorkbookChecker::outcomeOfRepeat(const RowFate &fate)
{
    if (m_erased.contains(fate.key))
        return {CheckedEnd::erased, erasedRow};
    KnownContacts::Contact &known = m_known.byKey[fate.key];
    const QString email = fate.email.value_or(QString());
    if (email.isEmpty() || fate.key.startsWith(emailPrefix) ||
        email.compare(known.email, Qt::CaseInsensitive) == 0)
        return {CheckedEnd::duplicate, u"Déjà présent : "_s + known.name};
    if (isErasedAddress(m_known.erased, email))
        return {CheckedEnd::erased, u"Adresse laissée de côté, effacée à la demande de son "
                                    "titulaire : "_s +
                                        known.name};
    const QString before = std::exchange(known.email, email);
    if (before.isEmpty())
        return {CheckedEnd::addressUpdate, u"Adresse ajoutée : "_s + known.name};
    return {CheckedEnd::addressUpdate,
            u"Adresse remplacée (avant : %1) : %2"_s.arg(before, known.name)};
}

QString WorkbookChecker::rowName(std::uint32_t number) const
{
    const QString name = u"contact de la ligne %1"_s.arg(number);
    return m_check.sheets > 1 ? name + u" de la feuille %1"_s.arg(m_check.sheets) : name;
}

} // namespace quenoria
