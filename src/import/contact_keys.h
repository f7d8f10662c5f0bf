#pragma once

#include "model/records.h"

#include <QHash>

namespace quenoria {

/// Ids of contacts by the keys under which an import knows them: of two contacts with one key the
/// first in the list counts. An id that is no key any more still stands for its contact, which was
/// edited since.
[[nodiscard]] QHash<QString, QString> idsByKey(const std::vector<Prospect> &prospects);

} // namespace quenoria
