#pragma once

#include "model/json_text.h"

#include <set>

namespace quenoria {

/// A set of contact ids or recipient keys, written sorted so that equal sets are equal bytes.
using IdSet = std::set<QString>;

inline void appendJson(std::string &out, const IdSet &ids, int level)
{
    appendJsonArray(out, ids, level);
}

} // namespace quenoria
