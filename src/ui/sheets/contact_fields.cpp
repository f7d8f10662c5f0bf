#include "ui/sheets/contact_fields.h"

#include "model/contact_rules.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString firstDepartment = u"29"_s;

} // namespace

ContactFields newContactFields()
{
    ContactFields fields;
    fields.department = firstDepartment;
    return fields;
}

ContactFields contactFields(const Prospect &prospect)
{
    const auto [name, commune] = labelParts(prospect.label);
    return {name,
            commune,
            prospect.phone,
            prospect.email.value_or(QString()),
            prospect.department,
            prospect.profession.value_or(QString())};
}

bool hasPhoneOrEmail(const ContactFields &fields)
{
    return !fields.phone.trimmed().isEmpty() || !fields.email.trimmed().isEmpty();
}

} // namespace quenoria
