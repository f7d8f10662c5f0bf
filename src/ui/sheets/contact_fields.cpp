#include "ui/sheets/contact_fields.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString firstDepartment = u"29"_s;
const QString manualEntry = u"AJOUT MANUEL"_s;

struct NameAndCommune {
    QString name;
    QString commune;
};

NameAndCommune readLabel(QString label)
{
    constexpr auto unicode = QRegularExpression::UseUnicodePropertiesOption;
    static const QRegularExpression phone(uR"(\s+—\s+(?:\+?\d[\d .-]*)$)"_s, unicode);
    static const QRegularExpression whole(uR"(^(.*?)\s+—\s+(.*?)\s+\((?:\d{2,3}|2A|2B)\)$)"_s,
                                          unicode | QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression department(uR"(\s+\((?:\d{2,3}|2A|2B)\)$)"_s, unicode);
    label.remove(phone);
    const QRegularExpressionMatch match = whole.match(label);
    if (!match.hasMatch())
        return {label.remove(department), {}};
    const QString commune = match.captured(2);
    const bool typedByHand = commune.compare(manualEntry, Qt::CaseInsensitive) == 0;
    return {match.captured(1), typedByHand ? QString() : commune};
}

} // namespace

ContactFields newContactFields()
{
    ContactFields fields;
    fields.department = firstDepartment;
    return fields;
}

ContactFields contactFields(const Prospect &prospect)
{
    const auto [name, commune] = readLabel(prospect.label);
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
