#pragma once

#include "model/id_set.h"

#include <QHash>
#include <QString>

namespace quenoria {

class ProspectStore;

/// Who is known already while a workbook is looked at, without the store.
struct KnownContacts {
    struct Contact {
        QString name; ///< as a sentence about a row may tell of it
        QString email;
    };

    QHash<QString, Contact> byKey;
    IdSet notToContact; ///< keys

    static KnownContacts of(const ProspectStore &store);
};

} // namespace quenoria
