#pragma once

#include "model/id_set.h"

namespace quenoria {

/// What an act on many contacts came to.
struct ManyContacts {
    IdSet changed;
    int stopped = 0;     ///< left out, since they want nothing more
    int unreachable = 0; ///< left out, for want of a number or an address
};

} // namespace quenoria
