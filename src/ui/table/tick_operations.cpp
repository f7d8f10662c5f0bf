#include "ui/table/tick_operations.h"

namespace quenoria {

QVariant isTickedForDeletion(const Cell &cell)
{
    return cell.state.deleteSelection.contains(cell.contact.id);
}

void tickForDeletion(const Cell &cell, const QVariant &ticked)
{
    tickManyForDeletion(cell.store, cell.state, ticked.toBool(), {cell.contact.id});
}

ManyContacts tickManyForDeletion(ProspectStore & /*store*/, TableState &state, bool on,
                                 const IdSet &ids)
{
    if (on) {
        state.deleteSelection.insert(ids.begin(), ids.end());
    } else {
        for (const QString &id : ids)
            state.deleteSelection.erase(id);
    }
    return {.changed = ids};
}

template <Channel channel>
QVariant isSelected(const Cell &cell)
{
    return channel == Channel::sms ? cell.store.isSelectedForSending(cell.contact)
                                   : cell.store.isSelectedForEmailSending(cell.contact);
}

template <Channel channel>
void select(const Cell &cell, const QVariant &selected)
{
    if (channel == Channel::sms)
        cell.store.setSelectedForSending(selected.toBool(), cell.contact);
    else
        cell.store.setSelectedForEmailSending(selected.toBool(), cell.contact);
}

template <Channel channel>
ManyContacts selectMany(ProspectStore &store, TableState & /*state*/, bool on, const IdSet &ids)
{
    return store.setSelected(channel, on, ids);
}

template <Channel channel>
bool canBeSelected(const Cell &cell)
{
    return isSelected<channel>(cell).toBool() ||
           (!cell.store.isStopped(cell.contact) && cell.store.isReachable(channel, cell.contact));
}

template <Channel channel>
QVariant isSent(const Cell &cell)
{
    return cell.store.isMarkedSent(channel, cell.contact);
}

template <Channel channel>
void markSent(const Cell &cell, const QVariant &sent)
{
    if (channel == Channel::sms)
        cell.store.setSent(sent.toBool(), cell.contact);
    else
        cell.store.setEmailSent(sent.toBool(), cell.contact);
}

template <Channel channel>
ManyContacts markManySent(ProspectStore &store, TableState & /*state*/, bool on, const IdSet &ids)
{
    return store.setSent(channel, on, ids);
}

QVariant isStopped(const Cell &cell) { return cell.store.isStopped(cell.contact); }

void stop(const Cell &cell, const QVariant &stopped)
{
    cell.store.setStopped(stopped.toBool(), cell.contact);
}

ManyContacts stopMany(ProspectStore &store, TableState & /*state*/, bool on, const IdSet &ids)
{
    return store.setStopped(on, ids);
}

template QVariant isSelected<Channel::sms>(const Cell &);
template QVariant isSelected<Channel::email>(const Cell &);
template void select<Channel::sms>(const Cell &, const QVariant &);
template void select<Channel::email>(const Cell &, const QVariant &);
template ManyContacts selectMany<Channel::sms>(ProspectStore &, TableState &, bool, const IdSet &);
template ManyContacts selectMany<Channel::email>(ProspectStore &, TableState &, bool,
                                                 const IdSet &);
template bool canBeSelected<Channel::sms>(const Cell &);
template bool canBeSelected<Channel::email>(const Cell &);
template QVariant isSent<Channel::sms>(const Cell &);
template QVariant isSent<Channel::email>(const Cell &);
template void markSent<Channel::sms>(const Cell &, const QVariant &);
template void markSent<Channel::email>(const Cell &, const QVariant &);
template ManyContacts markManySent<Channel::sms>(ProspectStore &, TableState &, bool,
                                                 const IdSet &);
template ManyContacts markManySent<Channel::email>(ProspectStore &, TableState &, bool,
                                                   const IdSet &);

} // namespace quenoria
