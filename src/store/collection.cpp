#include "store/collection.h"

#include "store/prospect_store.h"

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

} // namespace

/// The rows; the one place that reaches the store's collections as members.
struct CollectionTable {
    template <auto member>
    static constexpr CollectionDescriptor row(CollectionDescriptor described)
    {
        described.write = [](const ProspectStore &store, const TakePiece &take) {
            writeJson(store.*member, take);
        };
        described.decode = decode<member>;
        if (described.deletionTurn > 0) {
            described.forget = forget<member>;
            described.copy = copy<member>;
        }
        return described;
    }

    template <auto member>
    static std::optional<DecodedFile> decode(const QByteArray &bytes)
    {
        using Shape = std::remove_cvref_t<decltype(std::declval<ProspectStore &>().*member)>;
        auto decoded = decodeCollection<Shape>(bytes);
        if (!decoded)
            return {};
        const bool same = isEncodedAs(*decoded, bytes);
        const auto shape = std::make_shared<Shape>(std::move(*decoded)); // a function is copyable
        return DecodedFile{[shape](ProspectStore &store) { store.*member = std::move(*shape); },
                           same};
    }

    template <auto member>
    static void forget(ProspectStore &store, const IdSet &ids)
    {
        if constexpr (requires { (store.*member).removeEach(ids); })
            (store.*member).removeEach(ids);
    }

    template <auto member>
    static void copy(ProspectStore &store, const QString &from, const QString &to)
    {
        if constexpr (requires { (store.*member).removeEach(IdSet()); }) {
            const auto *entry = (store.*member).find(from);
            if (!entry || (store.*member).contains(to))
                return;
            auto copied = *entry; // which setting may move
            (store.*member).set(to, std::move(copied));
        }
    }

    static const std::array<CollectionDescriptor, 13> rows;
};

constexpr std::array<CollectionDescriptor, 13> CollectionTable::rows{
    row<&ProspectStore::m_customProspects>(
        {.collection = Collection::customProspects,
         .fileName = u"nouveaux-numeros.json",
         .saveFailure = u"Impossible d’enregistrer les nouveaux numéros : ",
         .change = listReshaped,
         .shapesList = true,
         .startUpWrites = false}),
    row<&ProspectStore::m_statuses>({.collection = Collection::statuses,
                                     .fileName = u"suivi-envois.json",
                                     .saveFailure = u"Impossible d’enregistrer le suivi SMS : ",
                                     .change = contactsChanged,
                                     .deletionTurn = 1}),
    row<&ProspectStore::m_messageTemplates>(
        {.collection = Collection::messageTemplates,
         .fileName = u"modeles-messages.json",
         .saveFailure = u"Impossible d’enregistrer les modèles de messages : ",
         .change = templatesChanged<Channel::sms>}),
    row<&ProspectStore::m_messageAssignments>(
        {.collection = Collection::messageAssignments,
         .fileName = u"associations-messages.json",
         .saveFailure = u"Impossible d’enregistrer les associations de messages : ",
         .change = contactsChanged,
         .deletionTurn = 3}),
    row<&ProspectStore::m_emailStatuses>(
        {.collection = Collection::emailStatuses,
         .fileName = u"suivi-envois-mails.json",
         .saveFailure = u"Impossible d’enregistrer le suivi des e-mails : ",
         .change = contactsChanged,
         .deletionTurn = 2}),
    row<&ProspectStore::m_emailTemplates>(
        {.collection = Collection::emailTemplates,
         .fileName = u"modeles-mails.json",
         .saveFailure = u"Impossible d’enregistrer les modèles d’e-mails : ",
         .change = templatesChanged<Channel::email>}),
    row<&ProspectStore::m_emailAssignments>(
        {.collection = Collection::emailAssignments,
         .fileName = u"associations-mails.json",
         .saveFailure = u"Impossible d’enregistrer les associations d’e-mails : ",
         .change = contactsChanged,
         .deletionTurn = 4}),
    row<&ProspectStore::m_emailOverrides>(
        {.collection = Collection::emailOverrides,
         .fileName = u"adresses-mails-completees.json",
         .saveFailure = u"Impossible d’enregistrer les adresses e-mail complétées : ",
         .change = contactsEdited,
         .shapesList = true,
         .deletionTurn = 5}),
    row<&ProspectStore::m_contactOverrides>(
        {.collection = Collection::contactOverrides,
         .fileName = u"contacts-modifies.json",
         .saveFailure = u"Impossible d’enregistrer les contacts modifiés : ",
         .change = contactsEdited,
         .shapesList = true,
         .deletionTurn = 6}),
    row<&ProspectStore::m_attachmentPaths>(
        {.collection = Collection::attachmentPaths,
         .fileName = u"fichiers-joints.json",
         .saveFailure = u"Impossible d’enregistrer les fichiers joints : ",
         .change = contactsChanged,
         .deletionTurn = 7}),
    row<&ProspectStore::m_deletedProspectIDs>(
        {.collection = Collection::deletedProspectIDs,
         .fileName = u"contacts-supprimes.json",
         .saveFailure = u"Impossible d’enregistrer les contacts supprimés : ",
         .change = listReshaped,
         .shapesList = true}),
    row<&ProspectStore::m_departments>(
        {.collection = Collection::departments,
         .fileName = u"departements.json",
         .saveFailure = u"Impossible d’enregistrer les départements : ",
         .change = departmentsChanged}),
    row<&ProspectStore::m_smsMonthlyRecipientsByMonth>(
        {.collection = Collection::smsMonthlyRecipientsByMonth,
         .fileName = u"quota-destinataires-sms.json",
         .saveFailure = u"Impossible d’enregistrer le quota mensuel SMS : ",
         .change = quotaChanged}),
};

std::span<const CollectionDescriptor> collections() { return CollectionTable::rows; }

const CollectionDescriptor &descriptor(Collection collection)
{
    return CollectionTable::rows[std::size_t(collection)];
}

} // namespace quenoria
