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
    const char16_t *code;
};

constexpr std::array knownDepartments{
    KnownDepartment{"finistere", u"29"},
    KnownDepartment{"cotes d armor", u"22"},
    KnownDepartment{"ille et vilaine", u"35"},
    KnownDepartment{"morbihan", u"56"},
};

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

bool isDigitOrCapital(QChar c) { return isDigit(c) || (c >= u'A' && c <= u'Z'); }

bool isCode(QStringView word)
{
    if (word == u"2A" || word == u"2B")
        return true;
    return (word.size() == 2 || word.size() == 3) && std::ranges::all_of(word, isDigit);
}

/// The first word of digits and capitals that is a code as a whole: "29" in "29 - BREST", nothing
/// in "29200".
QString codeWithin(const QString &upper)
{
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
    for (const KnownDepartment &known : knownDepartments) {
        if (normalized.find(known.normalizedName) == std::string::npos)
            continue;
        const QString code = QString::fromUtf16(known.code);
        return DepartmentInfo{code, ProspectStore::legacyDepartmentNames.at(code)};
    }
    const QString text =
        QString::fromUtf8(department.data(), qsizetype(department.size())).trimmed();
    QString code = codeWithin(text.toUpper());
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
