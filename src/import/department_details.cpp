#include "import/department_details.h"

#include "import/header_text.h"
#include "store/prospect_store.h"

#include <algorithm>
#include <array>
#include <string>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

struct KnownDepartment {
    std::string_view normalizedName;
    DepartmentInfo department;
};

/// Departments that are recognised by their names.
const std::array<KnownDepartment, 4> &knownDepartments()
{
    const auto known = [](std::string_view normalizedName, const QString &code) {
        return KnownDepartment{normalizedName,
                               {code, ProspectStore::legacyDepartmentNames.at(code)}};
    };
    static const std::array departments{
        known("finistere", u"29"_s),
        known("cotes d armor", u"22"_s),
        known("ille et vilaine", u"35"_s),
        known("morbihan", u"56"_s),
    };
    return departments;
}

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

bool isDigitOrCapital(QChar c) { return isDigit(c) || (c >= u'A' && c <= u'Z'); }

bool isCode(QStringView word)
{
    if (word == u"2A" || word == u"2B")
        return true;
    return (word.size() == 2 || word.size() == 3) && std::ranges::all_of(word, isDigit);
}

/// The first word of digits and capitals that is a code as a whole: "29" in "29 - Brest", "2A" in
/// "Corse (2a)", nothing in "29200".
QString codeWithin(const QString &text)
{
    if (std::ranges::none_of(text, isDigit))
        return {};
    const QString upper = text.toUpper();
    const auto *position = upper.begin();
    while (position != upper.end()) {
        const auto *const start = std::find_if(position, upper.end(), isDigitOrCapital);
        position = std::find_if_not(start, upper.end(), isDigitOrCapital);
        if (isCode(QStringView(start, position)))
            return QString(start, position - start);
    }
    return {};
}

QString codeOfPostcode(std::string_view postcode)
{
    QString digits;
    for (const char c : postcode) {
        if (isDigit(QLatin1Char(c)))
            digits += QLatin1Char(c);
    }
    if (digits.size() < 2)
        return {};
    const bool isOverseas = digits.startsWith(u"97") || digits.startsWith(u"98");
    return digits.left(isOverseas ? 3 : 2);
}

QString nameBeside(const QString &code, QString text)
{
    const auto isBorder = [](QChar c) { return c.isSpace() || u"-—()"_s.contains(c); };
    if (text.contains(code))
        text.remove(u'(' + code + u')').remove(code);
    const auto *const first = std::find_if_not(text.cbegin(), text.cend(), isBorder);
    const auto last = std::find_if_not(text.crbegin(), text.crend(), isBorder).base();
    return first < last ? QString(first, last - first) : QString();
}

} // namespace

std::optional<DepartmentInfo> departmentDetails(std::string_view department,
                                                std::string_view postcode)
{
    const std::string normalized = normalizedHeader(department);
    for (const KnownDepartment &known : knownDepartments()) {
        if (normalized.find(known.normalizedName) != std::string::npos)
            return known.department;
    }
    const QString text =
        QString::fromUtf8(department.data(), qsizetype(department.size())).trimmed();
    QString code = codeWithin(text);
    if (code.isEmpty())
        code = codeOfPostcode(postcode);
    if (code.isEmpty())
        return std::nullopt;
    QString name = nameBeside(code, text);
    if (name.isEmpty()) {
        const auto known = ProspectStore::legacyDepartmentNames.find(code);
        name = known != ProspectStore::legacyDepartmentNames.end() ? known->second
                                                                   : u"Département "_s + code;
    }
    return DepartmentInfo{code, name};
}

} // namespace quenoria
