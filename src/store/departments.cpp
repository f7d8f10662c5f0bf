#include "model/text_order.h"
#include "store/prospect_store.h"
#include "store/store_state.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString needsCodeAndName = u"Saisissez le code et le nom du département."_s;
const QString invalidCode = u"Le code doit contenir 2 ou 3 chiffres, ou être 2A/2B."_s;
const QString alreadyKnown = u"Ce département existe déjà."_s;

bool isDepartmentCode(const QString &code)
{
    static const QRegularExpression pattern(uR"(\A(?:\d{2,3}|2A|2B)\z)"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(code).hasMatch();
}

} // namespace

std::vector<DepartmentInfo> ProspectStore::sortedDepartments() const
{
    std::vector<DepartmentInfo> sorted = m_state.contacts().departments.values();
    std::ranges::stable_sort(sorted, [](const DepartmentInfo &a, const DepartmentInfo &b) {
        return finderOrder().compare(a.code, b.code) < 0;
    });
    return sorted;
}

QString ProspectStore::departmentName(const QString &code) const
{
    const auto *found = m_state.contacts().departments.find(
        [&code](const DepartmentInfo &department) { return department.code == code; });
    return found ? found->name : u"Département "_s + code;
}

Refusal ProspectStore::addDepartment(const QString &code, const QString &name)
{
    const QString upper = code.trimmed().toUpper();
    const QString shown = name.trimmed();
    if (upper.isEmpty() || shown.isEmpty())
        return needsCodeAndName;
    if (!isDepartmentCode(upper))
        return invalidCode;
    const auto sameCode = [&upper](const DepartmentInfo &department) {
        return department.code.compare(upper, Qt::CaseInsensitive) == 0;
    };
    if (m_state->departments.find(sameCode))
        return alreadyKnown;
    m_state->departments.append(DepartmentInfo{upper, shown});
    m_state->publish(Collection::departments);
    return {};
}

} // namespace quenoria
