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
        ContactCard card{contact,
                         status ? status->comment.value_or(QString()) : QString(),
                         {},
                         store.attachmentPath(contact)};
        for (const Channel channel : allChannels)
            card.messages[std::size_t(channel)] = store.assignedTemplate(channel, contact).id;
        cards.insert(contact.id, card);
    }
    return cards;
}

} // namespace quenoria
