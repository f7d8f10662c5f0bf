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

bool isErasedAddress(const ErasedKeys &erased, const std::optional<QString> &address)
{
    return address && !erased.empty() && erased.contains(u"email:"_s + *address);
}

bool isErasedContact(const ErasedKeys &erased, const QString &key,
                     const std::optional<QString> &address)
{
    return erased.contains(key) || isErasedAddress(erased, address);
}

std::size_t leaveOutErased(ProspectImportAnalysis &analysis, const ErasedKeys &erased)
{
    if (erased.empty()) // most often: no hash is computed for a row
        return 0;
    IdSet gone;
    const std::size_t contacts = std::erase_if(analysis.prospects, [&](const Prospect &contact) {
        const bool isErased = isErasedContact(erased, contact.id, contact.email);
        if (isErased)
            gone.insert(contact.id);
        return isErased;
    });
    // A row that repeats one that was left out may give its contact another address.
    return contacts + std::erase_if(analysis.emailUpdates, [&](const auto &update) {
               return gone.contains(update.first) || isErasedAddress(erased, update.second);
           });
}

} // namespace quenoria
