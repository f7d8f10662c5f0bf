#pragma once

#include "store/prospect_store.h"

namespace quenoria {

enum class ContactOrigin { builtInList, addedByHand, import };

/// What is kept for one channel.
struct DossierSends {
    bool isMarked = false;        ///< as sent
    std::vector<Instant> history; ///< newest first
    bool isTicked = false;        ///< for the next run
    EmailTemplate message;        ///< assigned; without a subject where the channel has none
};

/// Everything that the files hold of one contact.
struct ContactDossier {
    Prospect contact;                         ///< as it is shown
    std::optional<Prospect> first;            ///< as it came, where that is another
    std::optional<QString> addressFromImport; ///< which completes what came
    ContactOrigin origin = ContactOrigin::import;
    QString departmentName;
    bool isStopped = false;
    bool isListed = false; ///< among the numbers and addresses that are not to be contacted
    QString comment;
    PerChannel<DossierSends> channels;
    QStringList quotaMonths; ///< "2026-03", in which it counts as a recipient
    QString attachment;      ///< path, empty without one
    bool attachmentIsThere = false;
};

/// Nothing when no contact has the id.
[[nodiscard]] std::optional<ContactDossier> contactDossier(const ProspectStore &store,
                                                           const QString &id);

/// Every key under which an import would know the contact, by what it is and by what it was.
[[nodiscard]] IdSet keysOf(const ContactDossier &dossier);

} // namespace quenoria
