#include "export/export_tables.h"

#include "export/contact_cells_out.h"
#include "store/do_not_contact.h"

using namespace Qt::StringLiterals;

namespace quenoria {

namespace {

const QString emailPrefix = u"email:"_s;

const std::vector<ExportColumn> stopColumns{
    {u"Téléphone"_s, 18}, {u"Adresse"_s, 34},     {u"Nom"_s, 36},
    {u"Lieu"_s, 24},      {u"Département"_s, 24},
};

} // namespace

ExportTable stopTable(const ProspectStore &store, const QTimeZone &zone)
{
    const auto rows = std::make_shared<std::vector<std::vector<ExportCell>>>();
    for (const Prospect &contact : store.allProspects()) {
        if (!store.isStopped(contact))
            continue;
        const auto [name, town] = labelParts(contact.label);
        rows->push_back(
            {shownPhone(contact), contact.email.value_or(QString()), name, town,
             departmentCell(contact.department, store.departmentName(contact.department))});
    }
    for (const QString &key : store.doNotContact().keys()) {
        const bool isAddress = key.startsWith(emailPrefix);
        rows->push_back({isAddress ? QString() : formatPhone(key),
                         isAddress ? key.sliced(emailPrefix.size()) : QString()});
    }
    return {
        .name = u"Liste STOP"_s,
        .columns = stopColumns,
        .rows = rows->size(),
        .fill = [rows](std::size_t row, std::vector<ExportCell> &cells) { cells = (*rows)[row]; },
        .zone = zone};
}

} // namespace quenoria
