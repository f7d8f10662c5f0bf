#include "store/collection.h"

#include "store/store_state.h"

#include <array>

namespace quenoria {

namespace {

Change contactsChanged(Collection collection, const IdSet &ids)
{
    return ContactsChanged{collection, ids};
}

Change listReshaped(Collection, const IdSet &) { return ListReshaped{}; }

/// An edit of known contacts leaves every other where it is.
Change contactsEdited(Collection collection, const IdSet &ids)
{
    if (ids.empty())
        return ListReshaped{};
    return ContactsChanged{collection, ids};
}

Change departmentsChanged(Collection, const IdSet &) { return DepartmentsChanged{}; }
Change quotaChanged(Collection, const IdSet &) { return QuotaChanged{}; }

template <typename Shape>
bool isEncodedAs(const Shape &shape, QByteArrayView bytes)
{
    bool same = true;
    const auto compare = [&](std::string_view piece) {
        same = same && bytes.startsWith(QByteArrayView(piece.data(), qsizetype(piece.size())));
        bytes = same ? bytes.sliced(qsizetype(piece.size())) : bytes;
    };
    writeJson(shape, compare, Texts::dropped);
    return same && bytes.isEmpty();
}

template <Channel channel>
Change templatesChanged(Collection, const IdSet &)
{
    return TemplatesChanged{channel};
}

template <typename State, typename Shape>
auto &memberOf(State &state, Shape StoreState::*member)
{
    return state.*member;
}

template <typename State, typename Shape, Channel channel>
auto &memberOf(State &state, Shape ChannelData<channel>::*member)
{
    return state.channels.template of<channel>().*member;
}

template <auto member, typename State>
auto &at(State &state)
{
    return memberOf(state, member);
}

using OfSMS = ChannelData<Channel::sms>;
using OfEmail = ChannelData<Channel::email>;

} // namespace

/// The rows.
struct CollectionTable {
    template <auto member>
    static constexpr CollectionDescriptor row(CollectionDescriptor described)
    {
        described.write = [](const StoreState &state, const TakePiece &take) {
            writeJson(at<member>(state), take);
        };
        described.decode = described.startUpWrites ? decode<member, true> : decode<member, false>;
        if (described.deletionTurn > 0) {
            described.forget = forget<member>;
            described.copy = copy<member>;
            described.holds = holds<member>;
        }
        return described;
    }

    template <auto member, bool compares>
    static std::optional<DecodedFile> decode(const QByteArray &bytes)
    {
        using Shape = std::remove_cvref_t<decltype(at<member>(std::declval<StoreState &>()))>;
        auto decoded = decodeCollection<Shape>(bytes);
        if (!decoded)
            return {};
        const bool same = !compares || isEncodedAs(*decoded, bytes);
        const auto shape = std::make_shared<Shape>(std::move(*decoded)); // a function is copyable
        return DecodedFile{[shape](StoreState &state) { at<member>(state) = std::move(*shape); },
                           same};
    }

    template <auto member>
    static bool holds(const StoreState &state, const QString &id)
    {
        if constexpr (requires { at<member>(state).contains(id); })
            return at<member>(state).contains(id);
        return false;
    }

    template <auto member>
    static void forget(StoreState &state, const IdSet &ids)
    {
        if constexpr (requires { at<member>(state).removeEach(ids); })
            at<member>(state).removeEach(ids);
    }

    template <auto member>
    static void copy(StoreState &state, const QString &from, const QString &to)
    {
        if constexpr (requires { at<member>(state).removeEach(IdSet()); }) {
            const auto *entry = at<member>(state).find(from);
            if (!entry || at<member>(state).contains(to))
                return;
            auto copied = *entry; // which setting may move
            at<member>(state).set(to, std::move(copied));
        }
    }

    static const std::array<CollectionDescriptor, 13> rows;
};

constexpr std::array<CollectionDescriptor, 13> CollectionTable::rows{
    row<&StoreState::customProspects>(
        {.collection = Collection::customProspects,
         .fileName = u"nouveaux-numeros.json",
         .saveFailure = u"Impossible d’enregistrer les nouveaux numéros : ",
         .change = listReshaped,
         .shapesList = true,
         .startUpWrites = false}),
    row<&OfSMS::statuses>({.collection = Collection::statuses,
                           .fileName = u"suivi-envois.json",
                           .saveFailure = u"Impossible d’enregistrer le suivi SMS : ",
                           .change = contactsChanged,
                           .deletionTurn = 1,
                           .isHistory = true}),
    row<&OfSMS::templates>({.collection = Collection::messageTemplates,
                            .fileName = u"modeles-messages.json",
                            .saveFailure = u"Impossible d’enregistrer les modèles de messages : ",
                            .change = templatesChanged<Channel::sms>}),
    row<&OfSMS::assignments>(
        {.collection = Collection::messageAssignments,
         .fileName = u"associations-messages.json",
         .saveFailure = u"Impossible d’enregistrer les associations de messages : ",
         .change = contactsChanged,
         .deletionTurn = 3}),
    row<&OfEmail::statuses>({.collection = Collection::emailStatuses,
                             .fileName = u"suivi-envois-mails.json",
                             .saveFailure = u"Impossible d’enregistrer le suivi des e-mails : ",
                             .change = contactsChanged,
                             .deletionTurn = 2,
                             .isHistory = true}),
    row<&OfEmail::templates>({.collection = Collection::emailTemplates,
                              .fileName = u"modeles-mails.json",
                              .saveFailure = u"Impossible d’enregistrer les modèles d’e-mails : ",
                              .change = templatesChanged<Channel::email>}),
    row<&OfEmail::assignments>(
        {.collection = Collection::emailAssignments,
         .fileName = u"associations-mails.json",
         .saveFailure = u"Impossible d’enregistrer les associations d’e-mails : ",
         .change = contactsChanged,
         .deletionTurn = 4}),
    row<&StoreState::emailOverrides>(
        {.collection = Collection::emailOverrides,
         .fileName = u"adresses-mails-completees.json",
         .saveFailure = u"Impossible d’enregistrer les adresses e-mail complétées : ",
         .change = contactsEdited,
         .shapesList = true,
         .deletionTurn = 5}),
    row<&StoreState::contactOverrides>(
        {.collection = Collection::contactOverrides,
         .fileName = u"contacts-modifies.json",
         .saveFailure = u"Impossible d’enregistrer les contacts modifiés : ",
         .change = contactsEdited,
         .shapesList = true,
         .deletionTurn = 6}),
    row<&StoreState::attachmentPaths>(
        {.collection = Collection::attachmentPaths,
         .fileName = u"fichiers-joints.json",
         .saveFailure = u"Impossible d’enregistrer les fichiers joints : ",
         .change = contactsChanged,
         .deletionTurn = 7}),
    row<&StoreState::deletedProspectIDs>(
        {.collection = Collection::deletedProspectIDs,
         .fileName = u"contacts-supprimes.json",
         .saveFailure = u"Impossible d’enregistrer les contacts supprimés : ",
         .change = listReshaped,
         .shapesList = true}),
    row<&StoreState::departments>({.collection = Collection::departments,
                                   .fileName = u"departements.json",
                                   .saveFailure = u"Impossible d’enregistrer les départements : ",
                                   .change = departmentsChanged}),
    row<&StoreState::smsMonthlyRecipientsByMonth>(
        {.collection = Collection::smsMonthlyRecipientsByMonth,
         .fileName = u"quota-destinataires-sms.json",
         .saveFailure = u"Impossible d’enregistrer le quota mensuel SMS : ",
         .change = quotaChanged,
         .isHistory = true}),
};

static_assert(
    [] {
        for (std::size_t place = 0; place < CollectionTable::rows.size(); ++place) {
            if (CollectionTable::rows[place].collection != Collection(place))
                return false;
        }
        return true;
    }(),
    "each row stands at its collection's number");

std::span<const CollectionDescriptor> collections() { return CollectionTable::rows; }

const CollectionDescriptor &descriptor(Collection collection)
{
    return CollectionTable::rows[std::size_t(collection)];
}

} // namespace quenoria
