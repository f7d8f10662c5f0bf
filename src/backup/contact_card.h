#pragma once

#include "model/channel.h"
#include "model/records.h"

#include <QHash>

namespace quenoria {

class ProspectStore;

/// What the user has made of a contact, sends and STOP apart.
struct ContactCard {
    Prospect contact;
    QString comment;
    PerChannel<QString> messages; ///< ids of its templates
    QString attachment;
    bool operator==(const ContactCard &) const = default;
};

using ContactCards = QHash<QString, ContactCard>; ///< by id

[[nodiscard]] ContactCards cardsOf(const ProspectStore &store);

} // namespace quenoria
