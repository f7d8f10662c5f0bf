#pragma once

#include "model/id_set.h"
#include "store/erased_keys.h"

#include <QHashFunctions> // std::hash of a QString
#include <QString>

#include <unordered_map>

namespace quenoria {

class ProspectStore;

/// Who is known already while a workbook is looked at, without the store.
struct KnownContacts {
    struct Contact {
        QString name; ///< as a sentence about a row may tell of it
        QString email;
    };

    std::unordered_map<QString, Contact> byKey; ///< see IdsByKey
    IdSet notToContact;                         ///< keys
    ErasedKeys erased;                          ///< whom no import brings back

    static KnownContacts of(const ProspectStore &store);
};

} // namespace quenoria
