#pragma once

#include "model/records.h"

#include <QHash>

#include <unordered_map>

namespace quenoria {

/// Ids by keys. Of the standard library, as whatever grows with a workbook: the toolkit's hashes
/// end the program where there is no memory.
using IdsByKey = std::unordered_map<QString, QString>;

/// Ids of contacts by the keys under which an import knows them: of two contacts with one key the
/// first in the list counts. An id that is no key any more still stands for its contact, which was
/// edited since.
[[nodiscard]] IdsByKey idsByKey(const std::vector<Prospect> &prospects);

/// The id for a key, or the key itself: the id of a contact that the same import adds.
[[nodiscard]] const QString &idOf(const IdsByKey &ids, const QString &key);

} // namespace quenoria
