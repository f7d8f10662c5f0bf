#include "import/row_words.h"

#include "import/contact_columns.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

constexpr qsizetype longestShown = 120; // characters of a cell

const QString namelessRow = u"Pas de nom"_s;
const QString nothingToReach = u"Ni mobile ni adresse e-mail"_s;
const QString noPlace = u"Ni département ni code postal"_s;

/// What the row has to say about a role: "dans « 02 98 »", or that it says nothing.
QString quoted(const QString &text, const QString &before)
{
    return before + u" « "_s + text + u" »"_s;
}

QString unreachable(const QString &mobile, const QString &email)
{
    if (mobile.isEmpty() && email.isEmpty())
        return nothingToReach;
    const QString number =
        mobile.isEmpty() ? u"Pas de mobile"_s : quoted(mobile, u"Pas de mobile français dans"_s);
    const QString address = email.isEmpty()
                                ? u", pas d’adresse e-mail"_s
                                : quoted(email, u", pas d’adresse e-mail valide dans"_s);
    return number + address;
}

QString placeless(const QString &department, const QString &postcode)
{
    if (department.isEmpty() && postcode.isEmpty())
        return noPlace;
    if (postcode.isEmpty())
        return quoted(department, u"Pas de numéro de département dans"_s) +
               u", pas de code postal"_s;
    const QString code = quoted(postcode, u"le code postal"_s);
    if (department.isEmpty())
        return u"Pas de département, et aucun ne se déduit du code postal « "_s + postcode +
               u" »"_s;
    return quoted(department, u"Pas de numéro de département dans"_s) + u" ni dans "_s + code;
}

} // namespace

QString shownCell(std::string_view utf8)
{
    constexpr std::size_t mostBytes = 4; // of a character
    const std::string_view start = utf8.substr(0, std::size_t(longestShown) * mostBytes);
    const QString text = QString::fromUtf8(start.data(), qsizetype(start.size())).simplified();
    return text.size() > longestShown ? text.left(longestShown - 1) + u'…' : text;
}

QString rejectionOf(RowEnd end, const WorksheetRow &row, const ContactColumns &columns)
{
    const auto cell = [&](ColumnRole role) { return shownCell(columns.rawCell(row, role)); };
    switch (end) {
    case RowEnd::nameless:
        return namelessRow;
    case RowEnd::unreachable:
        return unreachable(cell(ColumnRole::mobile), cell(ColumnRole::email));
    case RowEnd::noDepartment:
        return placeless(cell(ColumnRole::department), cell(ColumnRole::postcode));
    case RowEnd::added:
    case RowEnd::duplicate:
        break;
    }
    return {};
}

} // namespace quenoria
