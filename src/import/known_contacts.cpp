#include "import/known_contacts.h"

#include "import/contact_keys.h"
#include "store/do_not_contact.h"
#include "store/prospect_store.h"

namespace quenoria {

KnownContacts KnownContacts::of(const ProspectStore &store)
{
    KnownContacts known;
    const IdsByKey ids = idsByKey(store.allProspects());
    known.byKey.reserve(ids.size());
    for (const auto &[key, id] : ids) {
        if (const Prospect *contact = store.prospect(id))
            known.byKey[key] = {contact->label, contact->email.value_or(QString())};
    }
    known.notToContact = store.doNotContact().keys();
    known.erased = store.doNotContact().erased();
    return known;
}

} // namespace quenoria
