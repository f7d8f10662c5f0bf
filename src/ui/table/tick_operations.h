#pragma once

#include "store/many_contacts.h"
#include "ui/table/contact_columns.h"

namespace quenoria {

/// What the check boxes of a column do, to one contact and to many at once.
struct TickOperations {
    QVariant (*value)(const Cell &);
    void (*edit)(const Cell &, const QVariant &);
    decltype(ContactColumn::tickMany) tickMany;
    bool (*available)(const Cell &) = nullptr;
    const char16_t *unreachable = u"";
    bool keptByTable = false;
    bool recordsDates = false;
    bool undoable = false;
};

QVariant isTickedForDeletion(const Cell &cell);
void tickForDeletion(const Cell &cell, const QVariant &ticked);
ManyContacts tickManyForDeletion(ProspectStore &store, TableState &state, bool on,
                                 const IdSet &ids);

template <Channel channel>
QVariant isSelected(const Cell &cell);
template <Channel channel>
void select(const Cell &cell, const QVariant &selected);
template <Channel channel>
ManyContacts selectMany(ProspectStore &store, TableState &state, bool on, const IdSet &ids);
template <Channel channel>
bool canBeSelected(const Cell &cell);

template <Channel channel>
QVariant isSent(const Cell &cell);
template <Channel channel>
void markSent(const Cell &cell, const QVariant &sent);
template <Channel channel>
ManyContacts markManySent(ProspectStore &store, TableState &state, bool on, const IdSet &ids);

QVariant isStopped(const Cell &cell);
void stop(const Cell &cell, const QVariant &stopped);
ManyContacts stopMany(ProspectStore &store, TableState &state, bool on, const IdSet &ids);

inline constexpr TickOperations deletionTicks{.value = isTickedForDeletion,
                                              .edit = tickForDeletion,
                                              .tickMany = tickManyForDeletion,
                                              .keptByTable = true};
inline constexpr TickOperations stopTicks{
    .value = isStopped, .edit = stop, .tickMany = stopMany, .undoable = true};

template <Channel channel>
inline constexpr TickOperations selectionTicks{
    .value = isSelected<channel>,
    .edit = select<channel>,
    .tickMany = selectMany<channel>,
    .available = canBeSelected<channel>,
    .unreachable = channel == Channel::sms ? u"sans numéro" : u"sans adresse",
    .undoable = true};

template <Channel channel>
inline constexpr TickOperations sentTicks{.value = isSent<channel>,
                                          .edit = markSent<channel>,
                                          .tickMany = markManySent<channel>,
                                          .recordsDates = true};

} // namespace quenoria
