#include "backup/contact_card.h"

#include "store/prospect_store.h"

namespace quenoria {

ContactCards cardsOf(const ProspectStore &store)
{
    ContactCards cards;
    cards.reserve(qsizetype(store.allProspects().size()));
    for (const Prospect &contact : store.allProspects()) {
        const SendStatus *status = store.status(contact);
        if (cards.contains(contact.id))
            continue;
        cards.insert(contact.id,
                     {contact, status ? status->comment.value_or(QString()) : QString(),
                      store.assignedMessageID(contact), store.assignedEmailTemplateID(contact),
                      store.attachmentPath(contact)});
    }
    return cards;
}

} // namespace quenoria
