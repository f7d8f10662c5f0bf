#include "store/many_contacts.h"

#include "store/prospect_store.h"
#include "store/store_state.h"
#include "store/together.h"

namespace quenoria {

ManyContacts ProspectStore::setSelected(Channel channel, bool selected, const IdSet &ids)
{
    ManyContacts outcome;
    const Together together(*this);
    for (const QString &id : ids) {
        const Prospect *contact = prospect(id);
        if (!contact || m_state->selection(channel).contains(id) == selected)
            continue;
        if (selected && isStopped(*contact)) {
            ++outcome.stopped;
        } else if (selected && !isReachable(channel, *contact)) {
            ++outcome.unreachable;
        } else {
            m_state->select(channel, selected, id);
            outcome.changed.insert(id);
        }
    }
    return outcome;
}

ManyContacts ProspectStore::setSent(Channel channel, bool sent, const IdSet &ids)
{
    ManyContacts outcome;
    const Together together(*this);
    for (const QString &id : ids) {
        const Prospect *contact = prospect(id);
        if (!contact || isMarkedSent(channel, *contact) == sent)
            continue;
        markSent(channel, sent, *contact);
        outcome.changed.insert(id);
    }
    return outcome;
}

ManyContacts ProspectStore::setStopped(bool stopped, const IdSet &ids)
{
    ManyContacts outcome;
    const Together together(*this);
    for (const QString &id : ids) {
        Prospect contact; // also one that an import is about to add
        contact.id = id;
        if (isStopped(contact) == stopped)
            continue;
        setStopped(stopped, contact);
        outcome.changed.insert(id);
    }
    return outcome;
}

} // namespace quenoria
