#pragma once

#include <QString>

#include <array>
#include <cstddef>

namespace quenoria {

/// The thirteen collections that have a file, in the order of their descriptors.
enum class Collection {
    customProspects,
    statuses,
    messageTemplates,
    messageAssignments,
    emailStatuses,
    emailTemplates,
    emailAssignments,
    emailOverrides,
    contactOverrides,
    attachmentPaths,
    deletedProspectIDs,
    departments,
    smsMonthlyRecipientsByMonth,
};

/// How a collection is called in the data folder and in the log.
struct CollectionDescriptor {
    Collection collection;
    const char16_t *fileName;
    const char16_t *saveFailure; ///< log line, followed by the system's error text
};

inline constexpr std::array collections{
    CollectionDescriptor{Collection::customProspects, u"nouveaux-numeros.json",
                         u"Impossible d’enregistrer les nouveaux numéros : "},
    CollectionDescriptor{Collection::statuses, u"suivi-envois.json",
                         u"Impossible d’enregistrer le suivi SMS : "},
    CollectionDescriptor{Collection::messageTemplates, u"modeles-messages.json",
                         u"Impossible d’enregistrer les modèles de messages : "},
    CollectionDescriptor{Collection::messageAssignments, u"associations-messages.json",
                         u"Impossible d’enregistrer les associations de messages : "},
    CollectionDescriptor{Collection::emailStatuses, u"suivi-envois-mails.json",
                         u"Impossible d’enregistrer le suivi des e-mails : "},
    CollectionDescriptor{Collection::emailTemplates, u"modeles-mails.json",
                         u"Impossible d’enregistrer les modèles d’e-mails : "},
    CollectionDescriptor{Collection::emailAssignments, u"associations-mails.json",
                         u"Impossible d’enregistrer les associations d’e-mails : "},
    CollectionDescriptor{Collection::emailOverrides, u"adresses-mails-completees.json",
                         u"Impossible d’enregistrer les adresses e-mail complétées : "},
    CollectionDescriptor{Collection::contactOverrides, u"contacts-modifies.json",
                         u"Impossible d’enregistrer les contacts modifiés : "},
    CollectionDescriptor{Collection::attachmentPaths, u"fichiers-joints.json",
                         u"Impossible d’enregistrer les fichiers joints : "},
    CollectionDescriptor{Collection::deletedProspectIDs, u"contacts-supprimes.json",
                         u"Impossible d’enregistrer les contacts supprimés : "},
    CollectionDescriptor{Collection::departments, u"departements.json",
                         u"Impossible d’enregistrer les départements : "},
    CollectionDescriptor{Collection::smsMonthlyRecipientsByMonth, u"quota-destinataires-sms.json",
                         u"Impossible d’enregistrer le quota mensuel SMS : "},
};

constexpr const CollectionDescriptor &descriptor(Collection collection)
{
    return collections[static_cast<std::size_t>(collection)];
}

} // namespace quenoria
