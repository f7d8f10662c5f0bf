#include "import/known_contacts.h"

#include "import/contact_keys.h"
#include "store/prospect_store.h"

namespace quenoria {

KnownContacts KnownContacts::of(const ProspectStore &store)
{
    KnownContacts known;
    const QHash<QString, QString> ids = idsByKey(store.allProspects());
    known.byKey.reserve(ids.size());
    for (auto id = ids.cbegin(); id != ids.cend(); ++id) {
        if (const Prospect *contact = store.prospect(*id))
            known.byKey.insert(id.key(), {contact->label, contact->email.value_or(QString())});
    }
    known.notToContact = store.doNotContact().keys();
    return known;
}

} // namespace quenoria
