#include "import/erased_contacts.h"

#include "import/contact_cells.h"
#include "store/contact_dossier.h"

using namespace Qt::StringLiterals;

namespace quenoria {

IdSet keysForImports(const ContactDossier &dossier)
{
    IdSet keys = keysOf(dossier);
    for (const QString &phone :
         {dossier.contact.phone, dossier.first.value_or(dossier.contact).phone}) {
        if (auto mobile = mobileIn(phone.toStdString()))
            keys.insert(std::move(*mobile));
    }
    return keys;
}

std::size_t leaveOutErased(ProspectImportAnalysis &analysis, const ErasedKeys &erased)
{
    if (erased.empty()) // most often: no hash is computed for a row
        return 0;
    const auto isErased = [&erased](const QString &address) {
        return erased.contains(u"email:"_s + address);
    };
    const std::size_t contacts = std::erase_if(analysis.prospects, [&](const Prospect &contact) {
        return erased.contains(contact.id) || (contact.email && isErased(*contact.email));
    });
    return contacts + std::erase_if(analysis.emailUpdates,
                                    [&](const auto &update) { return isErased(update.second); });
}

} // namespace quenoria
